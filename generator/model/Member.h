#ifndef WRT_GENERATOR_MEMBER_H
#define WRT_GENERATOR_MEMBER_H

#include "generator/read/Source.h"
#include "generator/read/Syntax.h"

namespace bridgegen {

struct Type;

/// How a parameter crosses. The names follow the table of array forms in docs/declarations.md.
enum class Passing {
  In,
  Out,
  InArray,
  OutArray,
  FillArray,        ///< the caller's room, without saying how much of it was filled
  CountedFillArray, ///< the same, with a count that comes back before the elements
  BulkRead,         ///< the same, with a count that comes back as the function's result
  ReturnedArray,
  ReturnedFillArray
};

struct Parameter {
  Passing passing = Passing::In;
  std::string name;
  const Type *type = nullptr; ///< the element's, of an array
  Position at;                ///< of the type

  // Arrays only: how many elements there are, or there is room for.
  std::string countName;
  const Type *countType = nullptr;
  // CountedFillArray, BulkRead and ReturnedFillArray: how many were filled in.
  std::string filledName;
  const Type *filledType = nullptr;

  bool isArray() const { return passing != Passing::In && passing != Passing::Out; }
  /// Strings and objects travel in `NSArray`s, values in C arrays.
  bool isObjectArray() const;
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
