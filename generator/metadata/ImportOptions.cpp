#include "generator/metadata/ImportOptions.h"

#include <CLI/CLI.hpp>

namespace bridgegen::metadata {

namespace {

constexpr const char *kDescription =
    "Reads Windows metadata and writes declarations of its types, a file per namespace.\n"
    "Without --type, --namespace and --proxy, everything in the files is declared. What these\n"
    "types need besides is declared in the least form that serves, 'proxy' or 'extern', with a\n"
    "note on standard error; so is what has to be left out.";

constexpr const char *kFooter =
    "Exit status:\n"
    "  0  Everything is written; or, with --check, nothing is lacking or contradicts.\n"
    "  1  A file is broken or contradicts what is known, or could not be read or written;\n"
    "     nothing is written. With --check also: something is lacking or contradicts.\n"
    "  2  The command line is wrong.";

} // namespace

std::optional<ImportOptions> parseImportOptions(const std::vector<std::string> &arguments,
                                                std::ostream &out, std::ostream &errors,
                                                int &status) {
  ImportOptions options;
  std::vector<std::string> names;
  CLI::App app(kDescription, "bridgegen import");
  app.footer(kFooter);
  app.get_formatter()->column_width(24);
  app.add_option("FILE", options.files, "Windows metadata")->required();
  app.add_option("--output", options.output, "The folder for the declarations")
      ->type_name("FOLDER");
  app.add_option("--namespace", options.wanted.nameSpaces, "Declare the types of this namespace")
      ->type_name("N")
      ->allow_extra_args(false);
  app.add_option("--type", options.wanted.types,
                 "Declare this type, or this instance: 'A.IVector<B.C>'")
      ->type_name("T")
      ->allow_extra_args(false);
  app.add_option("--proxy", options.wanted.proxies,
                 "The same without members, also when members need it")
      ->type_name("T")
      ->allow_extra_args(false);
  app.add_option("--as", names, "Give a type another name on the Objective-C side")
      ->type_name("T=NAME")
      ->allow_extra_args(false);
  app.add_option("--known", options.known,
                 "Declarations to build upon: a file, or a folder of '.idl' files")
      ->type_name("CATALOGUE")
      ->allow_extra_args(false);
  app.add_option("--own", options.own,
                 "The same, of the add-on itself: they may complete what the known ones have")
      ->type_name("FILE")
      ->allow_extra_args(false);
  app.add_flag("--check", options.check,
               "List what the known declarations have and the metadata lacks, has in another "
               "slot or has besides; write nothing");
  app.set_config("--selection", "", "Read such options from a file: type = [\"A.B\", \"A.C\"]")
      ->type_name("FILE");
  try {
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    if (!options.check && options.output.empty())
      throw CLI::RequiredError("--output");
    if (options.check && options.known.empty())
      throw CLI::RequiredError("--known");
    for (const std::string &name : names) {
      const size_t equals = name.find('=');
      if (equals == name.npos || equals == 0 || equals + 1 == name.size())
        throw CLI::ValidationError("--as", "'" + name + "' is not TYPE=NAME");
      options.bridgeNames[name.substr(0, equals)] = name.substr(equals + 1);
    }
  } catch (const CLI::CallForHelp &) {
    out << app.help();
    status = 0;
    return std::nullopt;
  } catch (const CLI::ParseError &error) {
    errors << "bridgegen import: " << error.what() << "; 'bridgegen import --help' tells more\n";
    status = 2;
    return std::nullopt;
  }
  return options;
}

} // namespace bridgegen::metadata
