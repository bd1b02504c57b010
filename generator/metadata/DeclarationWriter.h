#ifndef WRT_GENERATOR_METADATA_DECLARATION_WRITER_H
#define WRT_GENERATOR_METADATA_DECLARATION_WRITER_H

#include "generator/metadata/Selection.h"
#include "generator/output/OutputSet.h"

namespace bridgegen::metadata {

/// Names that types get on the Objective-C side, by their full names.
using BridgeNames = std::map<std::string, std::string>;

/// The selection as declarations, a file per namespace. A file that has the name of a known one is
/// called `NAMESPACE.Additions.idl`, since the names of units are unique.
OutputSet writeDeclarations(const Selection &selection, const Known &known,
                            const BridgeNames &bridgeNames);

} // namespace bridgegen::metadata

#endif
