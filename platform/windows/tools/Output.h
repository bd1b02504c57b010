#ifndef WRT_TOOLS_OUTPUT_H
#define WRT_TOOLS_OUTPUT_H

#include <filesystem>
#include <string>
#include <string_view>

namespace wrt {

/// Writes a file whole. Throws `std::runtime_error` when it cannot be written.
void save(const std::filesystem::path &file, std::string_view text);

/// The document with `text` in place of what stands between two lines of its, `begin` and `end`.
/// Throws `std::runtime_error` when it has no such lines or cannot be read.
std::string replaceBetween(std::string_view begin, std::string_view end,
                           const std::filesystem::path &document, std::string_view text);

} // namespace wrt

#endif
