#ifndef WRT_GENERATOR_COMMAND_LINE_H
#define WRT_GENERATOR_COMMAND_LINE_H

#include "generator/metadata/ImportOptions.h"
#include "generator/model/Target.h"

#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace bridgegen {

/// What a run is asked to do.
struct CommandLine {
  std::optional<metadata::ImportOptions>
      import; ///< of `bridgegen import`; then nothing else counts
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

/// Reads the arguments without the program's name. Nothing when there is nothing to do any more:
/// help was printed to `out`, or what is wrong to `errors`, and `status` is the program's.
std::optional<CommandLine> parseCommandLine(const std::vector<std::string> &arguments,
                                            std::ostream &out, std::ostream &errors, int &status);

} // namespace bridgegen

#endif
