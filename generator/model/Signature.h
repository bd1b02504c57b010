#ifndef WRT_GENERATOR_SIGNATURE_H
#define WRT_GENERATOR_SIGNATURE_H

#include "generator/model/Type.h"

namespace bridgegen {

/// The type's signature as the Windows Runtime forms it: `string`, `rc(Name;{iid})`,
/// `pinterface({piid};args)`. Nothing for a type whose signature would contain itself, or that is a
/// class without a default interface.
std::optional<std::string> typeSignature(const Type &type);

/// The signature of an instance.
std::optional<std::string> instanceSignature(const Instance &instance);

/// The identifier of a parameterised interface or delegate: the name-based UUID (version 5, SHA-1)
/// of its signature in the Windows Runtime's namespace.
Guid instanceIdentifier(std::string_view signature);

} // namespace bridgegen

#endif
