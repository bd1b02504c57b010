#ifndef WRT_GENERATOR_REFERENCE_MEMBER_FACTS_H
#define WRT_GENERATOR_REFERENCE_MEMBER_FACTS_H

#include "generator/project/BridgeClass.h"

namespace bridgegen {

// What the reference says of a method, as sentences. Names of code stand between backticks.

/// Whose what the method gives is, and what is to be done with it.
std::vector<std::string> ownership(const BridgeMethod &method);
/// How the member is called in WinRT, without its type: `Title`, `Closed`, `ShowAsync`.
std::string winrtName(const Member &member);
/// `property, read`, `event, add`, `method`.
const char *kindOf(const Member &member);
/// "may be nil", "not null" and so on; nothing for what is no pointer.
const char *nullability(const ObjcType &type);

} // namespace bridgegen

#endif
