#ifndef WRT_GENERATOR_EMIT_H
#define WRT_GENERATOR_EMIT_H

#include "generator/model/Model.h"
#include "generator/output/OutputSet.h"
#include "generator/project/HandWritten.h"

namespace bridgegen {

// One emitter per kind of output, each in a file of its own. They make a text of a checked model
// and nothing else: what a method looks like and how it crosses is decided in project/.

/// `include/WRTObjcBridge/types/<unit>.h`: value structures and interface pointers for C.
std::string emitTypesHeader(const Unit &unit);
/// `include/WRTObjcBridge/<unit>.h`: the public Objective-C header.
std::string emitPublicHeader(const Unit &unit, const Model &model);
/// `include/WRTObjcBridge/WRTObjcBridge.h`: all public headers.
std::string emitUmbrella(const Model &model);
/// `abi/<unit>.abi.h`: function tables, identifiers and abstract classes for the other side.
std::string emitAbiHeader(const Unit &unit);
/// `members/<unit>.members.h`: member constants.
std::string emitMembersHeader(const Unit &unit);
/// `classes/<unit>.mm`: the bridge classes.
std::string emitClasses(const Unit &unit);
/// `platform/<unit>.platform.h`: what the unit takes from the platform.
std::string emitPlatformHeader(const Unit &unit);
/// `platform/<unit>.delegates.mm`: delegate factories of the embedded platform.
std::string emitDelegateFactories(const Unit &unit);
/// `platform/<unit>.names.cpp`: activation names.
std::string emitClassNames(const Unit &unit);
/// `platform/bridge.exports`: what the library imports from `WRTBridge_zorvex.dll` for the bridges,
/// in the form of a module definition's export lines.
std::string emitBridgeExports(const Model &model);
/// `catalogue.tsv`: a line per method, those of the hand-written classes first.
std::string emitCatalogue(const Model &model, const std::vector<HandWrittenClass> &handWritten);
/// `surface.digest`: a line per class, the hand-written ones first.
std::string emitDigest(const Model &model, const std::vector<HandWrittenClass> &handWritten);

/// The paths of all outputs for units of these names, in the order of `emitAll`.
std::vector<std::string> outputPaths(const std::vector<std::string> &units);

/// Everything.
OutputSet emitAll(const Model &model, const std::vector<HandWrittenClass> &handWritten);

} // namespace bridgegen

#endif
