#ifndef WRT_GENERATOR_COMPONENT_TYPE_H
#define WRT_GENERATOR_COMPONENT_TYPE_H

#include "generator/model/Type.h"

namespace bridgegen {

/// How components name an interface or a delegate: `abi::IBuffer`, `IVector<String>`.
std::string componentInterface(const Type &type);

/// How components name a type as the argument of a generic one: `String`, `types::StorageFile`,
/// `Ref<abi::IBuffer>`.
std::string componentType(const Type &type);

/// Whether `componentType` is a name that the type has for itself; an interface has none.
bool hasComponentType(const Type &type);

} // namespace bridgegen

#endif
