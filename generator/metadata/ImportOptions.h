#ifndef WRT_GENERATOR_METADATA_IMPORT_OPTIONS_H
#define WRT_GENERATOR_METADATA_IMPORT_OPTIONS_H

#include "generator/metadata/Selection.h"

namespace bridgegen::metadata {

/// What `bridgegen import` is asked to do.
struct ImportOptions {
  std::vector<std::string> files;
  std::string output;
  std::vector<std::string> known; ///< declarations files and folders of them
  std::vector<std::string> own;   ///< the same, of the add-on that is being made
  Wanted wanted;
  std::map<std::string, std::string> bridgeNames; ///< by the full names of types
  bool check = false;
};

} // namespace bridgegen::metadata

#endif
