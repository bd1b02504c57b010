#include "generator/CommandLine.h"

#include "generator/emit/Outputs.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <sstream>
#include <string_view>

namespace bridgegen {

namespace {

/// Letters, digits and some of `more`, with a letter in front.
bool isName(const std::string &text, std::string_view more) {
  const auto is = [](int (*kind)(int), char c) { return kind(static_cast<unsigned char>(c)) != 0; };
  return !text.empty() && is(std::isalpha, text[0]) &&
         std::all_of(text.begin(), text.end(),
                     [&](char c) { return is(std::isalnum, c) || more.find(c) != more.npos; });
}

/// An option with any text as its value, which goes into one member.
struct ValueOption {
  std::string_view name;
  std::string_view value; ///< what it is, for messages
  std::string CommandLine::*one = nullptr;
  std::vector<std::string> CommandLine::*many = nullptr; ///< of an option that may be repeated
};

constexpr ValueOption kValueOptions[] = {
    {"--output", "a folder", &CommandLine::output},
    {"--hand-written", "a file", &CommandLine::handWritten},
    {"--delegate-header", "a header's name", &CommandLine::delegateHeader},
    {"--component-header", "a header's name", &CommandLine::componentHeader},
    {"--reference", "a folder", &CommandLine::reference},
    {"--platform", "a file", &CommandLine::platform},
    {"--known", "a file or folder", nullptr, &CommandLine::known},
    {"--select", "a type or namespace", nullptr, &CommandLine::selection},
};

} // namespace

std::optional<CommandLine> parseCommandLine(const std::vector<std::string> &arguments,
                                            std::string &problem) {
  CommandLine commandLine;
  for (size_t i = 0; i < arguments.size(); ++i) {
    const std::string &argument = arguments[i];
    if (argument == "--help" || argument == "-h") {
      commandLine.help = true;
    } else if (argument == "--list-outputs") {
      commandLine.listOutputs = true;
    } else if (const auto *option = std::ranges::find(kValueOptions, argument, &ValueOption::name);
               option != std::end(kValueOptions)) {
      if (++i == arguments.size()) {
        problem = "'" + argument + "' needs " + std::string(option->value);
        return std::nullopt;
      }
      if (option->one)
        commandLine.*option->one = arguments[i];
      else
        (commandLine.*option->many).push_back(arguments[i]);
    } else if (argument == "--library") {
      ++i;
      if (i == arguments.size() || !isName(arguments[i], "_.-")) {
        problem = "'--library' needs a name of letters, digits, '_', '.' and '-'";
        return std::nullopt;
      }
      commandLine.target.name = arguments[i];
    } else if (argument == "--prefix") {
      ++i;
      if (i == arguments.size() || !isName(arguments[i], "_")) {
        problem = "'--prefix' needs a name of letters, digits and '_'";
        return std::nullopt;
      }
      commandLine.target.prefix = arguments[i];
    } else if (argument.starts_with("-")) {
      problem = "unknown option '" + argument + "'";
      return std::nullopt;
    } else {
      commandLine.files.push_back(argument);
    }
  }
  if (commandLine.help)
    return commandLine;
  if (!commandLine.target.isAddOn() &&
      (!commandLine.known.empty() || !commandLine.target.prefix.empty()))
    problem = "'--known' and '--prefix' are for add-ons; '--library' names one";
  else if (commandLine.files.empty())
    problem = "no declarations files";
  else if (!commandLine.output.empty() && !commandLine.reference.empty())
    problem = "'--output' and '--reference' are two runs";
  else if (commandLine.output.empty() && commandLine.reference.empty() && !commandLine.listOutputs)
    problem = "no output folder; '--output' names it";
  return problem.empty() ? std::optional(commandLine) : std::nullopt;
}

namespace {

constexpr const char *kUsage =
    R"(Usage: bridgegen --output FOLDER [--hand-written FILE] [--delegate-header HEADER]
                 [--component-header HEADER] FILE.idl...
       bridgegen --reference FOLDER [--hand-written FILE] [--platform FILE] FILE.idl...
       bridgegen --library NAME [--prefix PREFIX] --known CATALOGUE --output FOLDER
                 [--delegate-header HEADER] FILE.idl...
       bridgegen --list-outputs [--library NAME] FILE.idl...
       bridgegen import --help

Makes the Objective-C bridges of the WinRT types that the files declare. All files are
read together, in any order; docs/declarations.md describes what stands in them. Each
is a unit, and its stem names its outputs.

Options:
  --output FOLDER   Where the outputs go. Folders are made as needed. A file whose
                    contents would not change is left alone, with its time. Outputs
                    of files that are no longer among the files are removed.
  --hand-written FILE
                    Classes that are not generated, for the tables: a line per class
                    with its superclass, and under it its methods' lines of
                    catalogue.tsv; columns separated by tabs, comments after '#'.
  --delegate-header HEADER
                    What the delegate factories include; it declares
                    'wrt::makeDelegate'.
  --component-header HEADER
                    What the families for components include; it declares 'Abi',
                    'Strings', 'Value', 'Objects' and 'Ref' of 'wrt::implement'.
  --reference FOLDER
                    Writes the source of the reference's pages into the folder, and
                    none of the outputs: facts for the templates in docs/site.
  --platform FILE   What the embedded platform has written, for the reference: on
                    each line an interface, or an interface, a tab and a function
                    that is not implemented.
  --select NAME     Make the bridges of this type or of all types of this namespace, and
                    what they need, alone. Types that members merely name become
                    proxies. May be repeated.
  --library NAME    Make the bridges of an add-on beside the product; its headers are
                    included as <NAME/FILE.h>.
  --known CATALOGUE A file, or a folder of '.idl' files, with what the product has:
                    the add-on's declarations may name it, and it is not made again.
  --prefix PREFIX   Stands before the names of the add-on's C structures and
                    Objective-C classes, those of instances that it makes included.
  --list-outputs    Print the paths of the outputs, relative to the output folder,
                    one a line, and write nothing. The files need not exist.
  --help            Print this.

)";

constexpr const char *kExitStatus = R"(
Exit status:
  0  Everything is written.
  1  Something in the files is wrong, or could not be read or written. Each error is
     a line 'file:line:column: error: ...' on standard error; nothing is written
     unless all files are right.
  2  The command line is wrong.
)";

void writeOutputs(std::ostream &out, bool areOfUnits) {
  for (const Output &output : allOutputs()) {
    if (output.isOfUnit() == areOfUnits && output.madeFor != For::AddOn)
      out << "  " << output.pathOf({}, "U") << "\n      " << output.description << '\n';
  }
}

} // namespace

std::string help() {
  std::ostringstream out;
  out << kUsage << "Outputs for each unit U:\n";
  writeOutputs(out, true);
  out << "and for all of them together:\n";
  writeOutputs(out, false);
  out << kExitStatus;
  return out.str();
}

} // namespace bridgegen
