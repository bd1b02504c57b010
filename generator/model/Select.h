#ifndef WRT_GENERATOR_SELECT_H
#define WRT_GENERATOR_SELECT_H

#include "generator/model/Model.h"

namespace bridgegen {

/// Leaves in a complete model what `names` (full names of types, and namespaces) select, and what
/// that needs: interfaces of classes with their members, instances of generic types, and types that
/// members merely name, as proxies. Answers the first name that is none, or nothing.
std::optional<std::string> select(Model &model, const std::vector<std::string> &names);

} // namespace bridgegen

#endif
