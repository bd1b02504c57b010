#ifndef WRT_GENERATOR_CHECK_H
#define WRT_GENERATOR_CHECK_H

#include "generator/model/Model.h"

namespace bridgegen {

/// Reports everything in a complete model that cannot be bridged.
void check(const Model &model, Diagnostics &diagnostics);

} // namespace bridgegen

#endif
