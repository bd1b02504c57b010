#ifndef WRT_GENERATOR_FILES_H
#define WRT_GENERATOR_FILES_H

#include <string>
#include <vector>

namespace bridgegen {

/// The paths themselves, and for a folder the `.idl` files in it and below it, in the order of
/// their names. Throws `std::filesystem::filesystem_error` for a folder that cannot be read.
std::vector<std::string> declarationFiles(const std::vector<std::string> &paths);

} // namespace bridgegen

#endif
