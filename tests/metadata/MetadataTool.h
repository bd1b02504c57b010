#ifndef WRT_TESTS_METADATA_TOOL_H
#define WRT_TESTS_METADATA_TOOL_H

#include "generator/model/Model.h"

namespace bridgegen::test {

/// The types of the model, without families and instances, as the text that ilasm reads. What
/// ilasm cannot say, `winmdOf` adds.
std::string catalogueIl(const Model &model);

/// A file for `import --selection` that takes what the model has in full, and proxy instances.
std::string selectionOf(const Model &model);

/// Makes Windows metadata of an image as ilasm writes it: the version string, the WindowsRuntime
/// flag on every type, and each class's `DefaultAttribute` moved to the class's first interface,
/// where ilasm has no place for it. Throws `std::runtime_error` when the image is none of ilasm's.
std::string winmdOf(std::string image);

} // namespace bridgegen::test

#endif
