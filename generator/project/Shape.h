#ifndef WRT_GENERATOR_SHAPE_H
#define WRT_GENERATOR_SHAPE_H

#include "generator/model/Type.h"

namespace bridgegen {

/// What a marshalling kind has to be told at run time.
struct Fact {
  FactKind kind;
  const Type *type;
};

/// One of the kinds of marshal/, spelled as C++ has it: `Out<Array<StringElements>>`.
struct MarshalKind {
  std::string name;
  std::optional<Fact> fact;
};

/// How a bridged member crosses: the arguments of its `Member` type.
struct Shape {
  MarshalKind result;
  std::vector<MarshalKind> parameters;

  /// `Void(Value<int>, Pointer)`.
  std::string signature() const;
  /// The facts in the order that `Member` takes them in.
  std::vector<Fact> facts() const;
};

Shape shapeOf(const Member &member);

} // namespace bridgegen

#endif
