#include "generator/CommandLine.h"

namespace bridgegen {

std::optional<CommandLine> parseCommandLine(const std::vector<std::string> &arguments,
                                            std::string &problem) {
  CommandLine commandLine;
  for (size_t i = 0; i < arguments.size(); ++i) {
    const std::string &argument = arguments[i];
    if (argument == "--help" || argument == "-h") {
      commandLine.help = true;
    } else if (argument == "--list-outputs") {
      commandLine.listOutputs = true;
    } else if (argument == "--output") {
      if (++i == arguments.size()) {
        problem = "'--output' needs a folder";
        return std::nullopt;
      }
      commandLine.output = arguments[i];
    } else if (argument.starts_with("-")) {
      problem = "unknown option '" + argument + "'";
      return std::nullopt;
    } else {
      commandLine.files.push_back(argument);
    }
  }
  if (commandLine.help)
    return commandLine;
  if (commandLine.files.empty())
    problem = "no declarations files";
  else if (commandLine.output.empty() && !commandLine.listOutputs)
    problem = "no output folder; '--output' names it";
  return problem.empty() ? std::optional(commandLine) : std::nullopt;
}

const char *const kHelp = R"(Usage: bridgegen --output FOLDER FILE.idl...
       bridgegen --list-outputs FILE.idl...

Makes the Objective-C bridges of the WinRT types that the files declare. All files are
read together, in any order; docs/declarations.md describes what stands in them. Each
is a unit, and its stem names its outputs.

Options:
  --output FOLDER   Where the outputs go. Folders are made as needed. A file whose
                    contents would not change is left alone, with its time.
  --list-outputs    Print the paths of the outputs, relative to the output folder,
                    one a line, and write nothing. The files need not exist.
  --help            Print this.

Outputs for each unit U:
  include/WRTObjcBridge/U.h         the public Objective-C header
  include/WRTObjcBridge/types/U.h   value structures and interface pointers, plain C
  abi/U.abi.h                       function tables, IIDs and abstract C++ classes
  members/U.members.h               member constants for the classes
  classes/U.mm                      the bridge classes
  platform/U.platform.h             what the classes take from the platform
  platform/U.delegates.mm           delegate factories of the embedded platform
  platform/U.names.cpp              activation names for the embedded platform
and for all of them together:
  include/WRTObjcBridge/WRTObjcBridge.h   all public headers
  platform/bridge.exports           what the classes take from WRTBridge_zorvex.dll
  catalogue.tsv                     a line per method: class, + or -, selector, 32-bit
                                    encoding, protocol encoding, interface, slot
  surface.digest                    a line per class: name, kind, superclass, number
                                    of methods, hash of selectors, encodings, IIDs, slots

Exit status:
  0  Everything is written.
  1  Something in the files is wrong, or could not be read or written. Each error is
     a line 'file:line:column: error: ...' on standard error; nothing is written
     unless all files are right.
  2  The command line is wrong.
)";

} // namespace bridgegen
