#ifndef WRT_GENERATOR_DOCUMENTATION_H
#define WRT_GENERATOR_DOCUMENTATION_H

#include "generator/project/BridgeClass.h"

namespace bridgegen {

// The one line above each declaration of the public headers.

std::string describeProtocol(const InterfaceType &interface, const Model &model);
std::string describeClass(const BridgeClass &bridge, const Model &model);
std::string describe(const BridgeMethod &method);
/// What a structure's number counts, for the two that are times: `: 100 nanoseconds each`.
std::string measureOf(const StructType &type);

} // namespace bridgegen

#endif
