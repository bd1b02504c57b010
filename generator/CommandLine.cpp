#include "generator/CommandLine.h"

#include "generator/emit/Outputs.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cctype>
#include <sstream>
#include <string_view>

namespace bridgegen {

namespace {

constexpr int kWrongUsage = 2;

constexpr const char *kDescription =
    "Makes the Objective-C bridges of the WinRT types that the files declare. All files are read\n"
    "together, in any order; docs/declarations.md describes what stands in them. Each is a unit, "
    "and\n"
    "its stem names its outputs. 'bridgegen import --help' tells how Windows metadata are read.";

constexpr const char *kExitStatus =
    "Exit status:\n"
    "  0  Everything is written.\n"
    "  1  Something in the files is wrong, or could not be read or written. Each error is\n"
    "     a line 'file:line:column: error: ...' on standard error; nothing is written\n"
    "     unless all files are right.\n"
    "  2  The command line is wrong.";

constexpr const char *kImportDescription =
    "Reads Windows metadata and writes declarations of its types, a file per namespace.\n"
    "Without --type, --namespace and --proxy, everything in the files is declared. What these\n"
    "types need besides is declared in the least form that serves, 'proxy' or 'extern', with a\n"
    "note on standard error; so is what has to be left out.";

constexpr const char *kImportExitStatus =
    "Exit status:\n"
    "  0  Everything is written; or, with --check, nothing is lacking or contradicts.\n"
    "  1  A file is broken or contradicts what is known, or could not be read or written;\n"
    "     nothing is written. With --check also: something is lacking or contradicts.\n"
    "  2  The command line is wrong.";

void writeOutputs(std::ostream &out, bool areOfUnits) {
  for (const Output &output : allOutputs()) {
    if (output.isOfUnit() == areOfUnits && output.madeFor != For::AddOn)
      out << "  " << output.pathOf({}, "U") << "\n      " << output.description << '\n';
  }
}

std::string footer() {
  std::ostringstream out;
  out << "Outputs for each unit U:\n";
  writeOutputs(out, true);
  out << "and for all of them together:\n";
  writeOutputs(out, false);
  out << '\n' << kExitStatus;
  return out.str();
}

/// Letters, digits and some of `more`, with a letter in front; `description` says so.
CLI::Validator isName(std::string_view more, const char *description) {
  return {[=](const std::string &text) {
            const auto is = [](int (*kind)(int), char c) {
              return kind(static_cast<unsigned char>(c)) != 0;
            };
            const bool isRight = !text.empty() && is(std::isalpha, text[0]) &&
                                 std::ranges::all_of(text, [&](char c) {
                                   return is(std::isalnum, c) || more.find(c) != more.npos;
                                 });
            return isRight ? "" : "'" + text + "' is not a name of " + description;
          },
          ""};
}

/// An option that takes one value each time.
template <class Place>
CLI::Option *option(CLI::App &app, const char *name, Place &place, const char *value,
                    const char *description) {
  return app.add_option(name, place, description)->type_name(value)->allow_extra_args(false);
}

/// Fills the places that `app` was given. False if help was asked for or something is wrong, which
/// has been said.
bool parse(CLI::App &app, std::vector<std::string> arguments, std::ostream &out,
           std::ostream &errors, int &status) {
  app.get_formatter()->column_width(24);
  try {
    std::ranges::reverse(arguments); // as it wants them
    app.parse(std::move(arguments));
    return true;
  } catch (const CLI::CallForHelp &) {
    out << app.help();
    status = 0;
  } catch (const CLI::ParseError &error) {
    errors << app.get_name() << ": " << error.what() << "; '" << app.get_name()
           << " --help' tells more\n";
    status = kWrongUsage;
  }
  return false;
}

void addOptions(CLI::App &app, CommandLine &run) {
  app.add_option("FILE", run.files, "Declarations, '.idl'")->required()->type_name("");
  auto *output = option(app, "--output", run.output, "FOLDER",
                        "Where the outputs go. What would not change is left alone, with its\n"
                        "time; outputs of files that are no longer named are removed");
  auto *reference = option(app, "--reference", run.reference, "FOLDER",
                           "Write the source of the reference's pages there and no outputs")
                        ->excludes(output);
  option(app, "--hand-written", run.handWritten, "FILE",
         "Classes that are not generated, for the tables: a line per class with\n"
         "its superclass, and under it its methods' lines of catalogue.tsv");
  option(app, "--delegate-header", run.delegateHeader, "HEADER",
         "What the delegate factories include; it declares 'wrt::makeDelegate'");
  option(app, "--component-header", run.componentHeader, "HEADER",
         "What the families for components include; it declares 'Abi',\n"
         "'Strings', 'Value', 'Objects' and 'Ref' of 'wrt::implement'");
  option(app, "--platform", run.platform, "FILE",
         "What the embedded platform has written, for the reference: on each\n"
         "line an interface, or an interface, a tab and a function that is not\n"
         "implemented")
      ->needs(reference);
  option(app, "--select", run.selection, "NAME",
         "Make the bridges of this type or namespace and what they need, alone;\n"
         "types that members merely name become proxies");
  auto *library = option(app, "--library", run.target.name, "NAME",
                         "Make the bridges of an add-on; its headers are <NAME/FILE.h>")
                      ->check(isName("_.-", "letters, digits, '_', '.' and '-'"));
  option(app, "--known", run.known, "CATALOGUE",
         "What the product has, a file or a folder of '.idl' files: an add-on\n"
         "may name it")
      ->needs(library);
  option(app, "--prefix", run.target.prefix, "PREFIX",
         "Stands before the names of the add-on's structures and classes")
      ->check(isName("_", "letters, digits and '_'"))
      ->needs(library);
  app.add_flag("--list-outputs", run.listOutputs,
               "Print the paths of the outputs in the output folder and write\n"
               "nothing; the files need not exist");
  app.callback([&run] {
    if (run.output.empty() && run.reference.empty() && !run.listOutputs)
      throw CLI::RequiredError("--output");
  });
}

void addOptions(CLI::App &app, metadata::ImportOptions &import) {
  app.add_option("FILE", import.files, "Windows metadata")->required()->type_name("");
  option(app, "--output", import.output, "FOLDER", "The folder for the declarations");
  option(app, "--namespace", import.wanted.nameSpaces, "N", "Declare the types of this namespace");
  option(app, "--type", import.wanted.types, "T",
         "Declare this type, or this instance: 'A.IVector<B.C>'");
  option(app, "--proxy", import.wanted.proxies, "T",
         "The same without members, also when members need it");
  app.add_option_function<std::vector<std::string>>(
         "--as",
         [&import](const std::vector<std::string> &names) {
           for (const std::string &name : names) {
             const size_t equals = name.find('=');
             if (equals == name.npos || equals == 0 || equals + 1 == name.size())
               throw CLI::ValidationError("--as", "'" + name + "' is not TYPE=NAME");
             import.bridgeNames[name.substr(0, equals)] = name.substr(equals + 1);
           }
         },
         "Give a type another name on the Objective-C side")
      ->type_name("T=NAME")
      ->allow_extra_args(false);
  option(app, "--known", import.known, "CATALOGUE",
         "Declarations to build upon: a file, or a folder of '.idl' files");
  option(app, "--own", import.own, "FILE",
         "The same, of the add-on itself: they may complete what the known ones have");
  app.add_flag("--check", import.check,
               "List what the known declarations have and the metadata lacks, has in\n"
               "another slot or has besides; write nothing");
  app.set_config("--selection", "", "Read such options from a file: type = [\"A.B\", \"A.C\"]")
      ->type_name("FILE");
  app.callback([&import] {
    if (!import.check && import.output.empty())
      throw CLI::RequiredError("--output");
    if (import.check && import.known.empty())
      throw CLI::RequiredError("--known");
  });
}

} // namespace

std::optional<CommandLine> parseCommandLine(const std::vector<std::string> &arguments,
                                            std::ostream &out, std::ostream &errors, int &status) {
  CommandLine run;
  if (arguments.empty() || arguments[0] != "import") {
    CLI::App app(kDescription, "bridgegen");
    app.footer(footer());
    addOptions(app, run);
    return parse(app, arguments, out, errors, status) ? std::optional(run) : std::nullopt;
  }
  // A program of its own, since the options of a subcommand cannot be read from a file.
  CLI::App app(kImportDescription, "bridgegen import");
  app.footer(kImportExitStatus);
  addOptions(app, run.import.emplace());
  return parse(app, {arguments.begin() + 1, arguments.end()}, out, errors, status)
             ? std::optional(run)
             : std::nullopt;
}

} // namespace bridgegen
