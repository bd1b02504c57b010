#ifndef WRT_GENERATOR_EMIT_H
#define WRT_GENERATOR_EMIT_H

#include "generator/model/Model.h"
#include "generator/output/OutputSet.h"
#include "generator/project/HandWritten.h"

namespace bridgegen {

/// What the outputs are made of.
struct Input {
  const Model &model; ///< checked
  const std::vector<HandWrittenClass> &handWritten;
  /// The header in which the delegate factories find `wrt::makeDelegate`; empty for none.
  const std::string &delegateHeader;
  /// The header in which the families for components find what their type arguments derive from;
  /// empty for none.
  const std::string &componentHeader;
};

// One emitter per kind of output, each in a file of its own; Outputs.inc says what they make. They
// make a text of the model and nothing else: what a method looks like and how it crosses is decided
// in project/.

std::string emitTypesHeader(const Unit &unit, const Input &input);
std::string emitPublicHeader(const Unit &unit, const Input &input);
std::string emitAbiHeader(const Unit &unit, const Input &input);
std::string emitMembersHeader(const Unit &unit, const Input &input);
std::string emitClasses(const Unit &unit, const Input &input);
std::string emitPlatformHeader(const Unit &unit, const Input &input);
std::string emitDelegateFactories(const Unit &unit, const Input &input);
std::string emitClassNames(const Unit &unit, const Input &input);

/// What the classes of an add-on need for types of the product and the product keeps to itself.
std::string emitProductParts(const Input &input);

std::string emitUmbrella(const Input &input);
/// The generic interfaces as templates.
std::string emitFamilies(const Input &input);
/// In the form of a module definition's export lines.
std::string emitBridgeExports(const Input &input);
/// Which asynchronous operations there are, and which collections.
std::string emitOperations(const Input &input);
std::string emitCollections(const Input &input);
/// The lines of the hand-written classes come first in both tables.
std::string emitCatalogue(const Input &input);
std::string emitDigest(const Input &input);
std::string emitIdentifiers(const Input &input);
std::string emitMembers(const Input &input);

} // namespace bridgegen

#endif
