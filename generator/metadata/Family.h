#ifndef WRT_GENERATOR_METADATA_FAMILY_H
#define WRT_GENERATOR_METADATA_FAMILY_H

#include "generator/read/Syntax.h"

#include <string>

namespace bridgegen::metadata {

/// A member as it will be declared, types by their full names.
struct DeclaredMember {
  syntax::Member member;
  std::string comment; ///< why there is no bridge, or what to use instead; may be empty
};

/// A generic interface or delegate.
struct Family {
  bool isDelegate = false;
  Guid iid;
  std::vector<std::string> typeParameters;
  std::vector<DeclaredMember> members;     ///< of an interface
  std::vector<syntax::TypeName> arguments; ///< of a delegate, with what it returns
};

/// The type with each type parameter replaced by its argument.
syntax::TypeName substituted(const syntax::TypeName &type,
                             const std::vector<std::string> &parameters,
                             const std::vector<syntax::TypeName> &arguments);

/// The types that a member names, none of a reserved slot.
std::vector<const syntax::TypeName *> typesOf(const syntax::Member &member);

/// `Windows.Foundation.IReference<Int32>`: the name of an instance in the model.
std::string spelled(const syntax::TypeName &type);
/// The type that is spelled so, spaces or not; nothing when `text` is no type.
std::optional<syntax::TypeName> typeOf(std::string_view text);

} // namespace bridgegen::metadata

#endif
