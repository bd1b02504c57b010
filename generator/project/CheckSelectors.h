#ifndef WRT_GENERATOR_CHECK_SELECTORS_H
#define WRT_GENERATOR_CHECK_SELECTORS_H

#include "generator/model/Model.h"

namespace bridgegen {

/// Reports members of one interface or class whose selectors are the same. The model is one that
/// `check` found right.
void checkSelectors(const Model &model, Diagnostics &diagnostics);

} // namespace bridgegen

#endif
