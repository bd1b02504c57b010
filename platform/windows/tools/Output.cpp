#include "Output.h"

#include <fmt/core.h>

#include <fstream>
#include <sstream>
#include <stdexcept>

namespace wrt {

void save(const std::filesystem::path &file, std::string_view text) {
  if (!(std::ofstream(file) << text).flush())
    throw std::runtime_error("cannot write " + file.string());
}

std::string replaceBetween(std::string_view begin, std::string_view end,
                           const std::filesystem::path &document, std::string_view text) {
  std::ostringstream stream;
  stream << std::ifstream(document).rdbuf();
  std::string whole = stream.str();
  const std::size_t mark = whole.find(fmt::format("{}\n", begin));
  const std::size_t to = whole.find(fmt::format("{}\n", end), mark);
  if (mark == std::string::npos || to == std::string::npos)
    throw std::runtime_error(
        fmt::format("{} cannot be read, or has no lines {} and {}", document.string(), begin, end));
  const std::size_t from = mark + begin.size() + 1;
  return whole.replace(from, to - from, text);
}

} // namespace wrt
