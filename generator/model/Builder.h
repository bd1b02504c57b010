#ifndef WRT_GENERATOR_BUILDER_H
#define WRT_GENERATOR_BUILDER_H

#include "generator/model/Model.h"

namespace bridgegen {

/// Makes the model of all files: looks every name up, instantiates generic types, numbers slots.
/// What is wrong is reported; the model is complete only if nothing was. Whether the types and
/// members are ones that can be bridged is for `check` to say.
std::unique_ptr<Model> buildModel(const std::vector<syntax::Unit> &units, Diagnostics &diagnostics,
                                  const Target &target = {});

} // namespace bridgegen

#endif
