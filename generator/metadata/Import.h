#ifndef WRT_GENERATOR_METADATA_IMPORT_H
#define WRT_GENERATOR_METADATA_IMPORT_H

#include "generator/metadata/DeclarationWriter.h"
#include "generator/metadata/ImportOptions.h"

namespace bridgegen::metadata {

/// Declarations made of metadata.
struct Imported {
  OutputSet outputs;
  std::vector<std::string> notes;
  size_t types = 0;
  size_t members = 0; ///< slots of tables, reserved ones included
};

/// Declares what is wanted of the library in terms of what `knownSources` have. Throws `Refused`;
/// or reports to `diagnostics`, whose places may be in `written`, what the declarations themselves
/// would be refused for, and gives nothing.
std::optional<Imported> importTypes(const Library &library, const std::deque<Source> &knownSources,
                                    const Wanted &wanted, const BridgeNames &bridgeNames,
                                    Diagnostics &diagnostics, std::deque<Source> &written);

/// `bridgegen import`: answers the exit status.
int importCommand(const ImportOptions &options);

} // namespace bridgegen::metadata

#endif
