#ifndef WRT_GENERATOR_MEMBER_CONSTANT_H
#define WRT_GENERATOR_MEMBER_CONSTANT_H

#include "generator/project/Shape.h"

#include <string>

namespace bridgegen {

/// The name of a member's constant in its interface's namespace: that of the interface function,
/// unless it would hide a word of marshal/.
std::string constantName(const Member &member);

/// `Member<String()> get_Title{interface, 6}`: a member's constant called `name`. `accessor` is the
/// interface's accessor function as it is called at that place; `maker`, if given, takes the place
/// of the shared maker of the member's delegate.
std::string memberConstant(const Member &member, const std::string &name,
                           const std::string &accessor, const std::string &maker = "");

/// Whether the member takes a delegate that returns an object. Its adapter logs under the name of
/// the class that it belongs to, so each class has a constant of its own.
bool needsConstantPerClass(const Member &member);

/// `IBuffer::interface`: the function that asks an object for the type's interface.
std::string accessorFunction(const Type &type);

/// `&kWRTIBufferBridgeClass`
std::string classReference(const Type &type);

} // namespace bridgegen

#endif
