#ifndef WRT_TESTS_WINMD_RECIPE_H
#define WRT_TESTS_WINMD_RECIPE_H

#include <string>

namespace bridgegen::test {

/// Makes Windows metadata of an image as ilasm writes it: the version string, the WindowsRuntime
/// flag on every type, and each class's `DefaultAttribute` moved to the class's first interface,
/// where ilasm has no place for it. Throws `std::runtime_error` when the image is none of ilasm's.
std::string winmdOf(std::string image);

} // namespace bridgegen::test

#endif
