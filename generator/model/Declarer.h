#ifndef WRT_GENERATOR_DECLARER_H
#define WRT_GENERATOR_DECLARER_H

#include "generator/model/Scope.h"

namespace bridgegen {

/// All names of all files and what each declaration became; what the types consist of comes later.
struct Declared {
  /// A declaration with its place in the model; `type` is null for families and lists of instances.
  struct Item {
    const syntax::Declaration *declaration;
    Unit *unit;
    Type *type;
  };

  Scope scope;
  std::vector<std::unique_ptr<Family>> families;
  std::vector<Item> items;
};

/// Enters the types of `units` into the model, and reports names and identifiers that occur twice.
Declared declare(const std::vector<syntax::Unit> &units, Model &model, Diagnostics &diagnostics);

} // namespace bridgegen

#endif
