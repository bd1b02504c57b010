#ifndef WRT_GENERATOR_COMMAND_LINE_H
#define WRT_GENERATOR_COMMAND_LINE_H

#include "generator/model/Target.h"

#include <optional>
#include <string>
#include <vector>

namespace bridgegen {

/// What a run is asked to do.
struct CommandLine {
  bool help = false;
  bool listOutputs = false;
  std::string output;          ///< the folder of the outputs; empty if `reference` is not
  std::string reference;       ///< the folder of the reference's pages; empty if `output` is not
  std::string platform;        ///< a file; empty for none
  std::string handWritten;     ///< a file; empty for none
  std::string delegateHeader;  ///< empty for none
  std::string componentHeader; ///< empty for none
  std::vector<std::string> selection; ///< empty for everything
  Target target;
  std::vector<std::string> known; ///< declarations files and folders of them
  std::vector<std::string> files;
};

/// Reads the arguments without the program's name. Nothing and a `problem` when they are not right.
std::optional<CommandLine> parseCommandLine(const std::vector<std::string> &arguments,
                                            std::string &problem);

/// What `--help` prints.
std::string help();

} // namespace bridgegen

#endif
