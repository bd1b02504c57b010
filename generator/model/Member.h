#ifndef WRT_GENERATOR_MEMBER_H
#define WRT_GENERATOR_MEMBER_H

#include "generator/forms/Passing.h"
#include "generator/read/Source.h"
#include "generator/read/Syntax.h"

namespace bridgegen {

struct Type;

struct Parameter {
  const Passing *passing = &kPassedIn;
  std::string name;
  const Type *type = nullptr; ///< the element's, of an array
  Position at;                ///< of the type

  // Arrays only: how many elements there are, or there is room for.
  std::string countName;
  const Type *countType = nullptr;
  // Arrays that say how many elements were filled in.
  std::string filledName;
  const Type *filledType = nullptr;

  const std::string &nameOf(Word word) const;
  const Type &typeOf(Word word) const;
  bool isArray() const { return passing->isArray; }
  /// Strings and objects travel in `NSArray`s, values in C arrays.
  bool isObjectArray() const;
  /// WinRT gives it, whether there is room for it or not.
  bool isHandedOut() const { return passing->isOut || passing->isFill || passing->isReturn; }
  /// Becomes the method's result: an object array that WinRT hands back.
  bool isResult() const;
};

enum class MemberKind { Getter, Setter, Method, EventAdd, EventRemove, Reserved };

/// One slot of an interface's table.
struct Member {
  MemberKind kind = MemberKind::Method;
  std::string name;           ///< WinRT's; the overload name of an overloaded method
  std::string overloadedName; ///< the name that overloads share, if it was told
  unsigned slot = 0;
  std::vector<Parameter> parameters;
  const Type *result = nullptr; ///< null for none
  Position at;                  ///< of the name
  Position resultAt;            ///< of the result's type

  /// A property that takes a block: it can be set and not be read.
  bool isDelegateProperty() const;
  /// Has an Objective-C method. A slot without one stays in the table.
  bool isBridged() const;
  /// The parameter that is the method's result, or null.
  const Parameter *resultParameter() const;
  /// The name of the interface function: `get_Title`, `add_Closed`, `Slot13`.
  std::string functionName() const;
};

} // namespace bridgegen

#endif
