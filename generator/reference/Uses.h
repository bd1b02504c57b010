#ifndef WRT_GENERATOR_REFERENCE_USES_H
#define WRT_GENERATOR_REFERENCE_USES_H

#include "generator/model/Model.h"

#include <map>

namespace bridgegen {

/// A member that names a type.
struct TypeUse {
  const InterfaceType *interface;
  const Member *member;
  bool isGiven; ///< the member gives it; otherwise it takes it
};

/// Which members take or give a type, on their own or inside a delegate, a collection or an
/// operation.
class Uses {
public:
  explicit Uses(const Model &model);

  /// In the order of the units. A member that takes and gives the type comes twice.
  const std::vector<TypeUse> &of(const Type &type) const;

private:
  void add(const Type &type, const TypeUse &use);

  std::map<const Type *, std::vector<TypeUse>> uses_;
};

} // namespace bridgegen

#endif
