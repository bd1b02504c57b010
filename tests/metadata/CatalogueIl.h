#ifndef WRT_TESTS_CATALOGUE_IL_H
#define WRT_TESTS_CATALOGUE_IL_H

#include "generator/model/Model.h"

namespace bridgegen::test {

/// The types of the model, without families and instances, as the text that ilasm reads. What
/// ilasm cannot say, `winmd` adds: see WinmdRecipe.h.
std::string catalogueIl(const Model &model);

/// A file for `import --selection` that takes what the model has in full, and proxy instances.
std::string selectionOf(const Model &model);

} // namespace bridgegen::test

#endif
