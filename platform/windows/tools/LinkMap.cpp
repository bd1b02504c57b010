#include "LinkMap.h"

#include <fmt/core.h>

#include <algorithm>
#include <charconv>
#include <fstream>

namespace wrt::pe {

namespace {

// Columns of a line, and what the indentation behind the numbers says of it.
constexpr std::size_t kSizeColumn = 9;
constexpr std::size_t kNameColumn = 24;
constexpr std::size_t kDigits = 8;
constexpr std::size_t kChunkIndent = 8;
constexpr std::size_t kSymbolIndent = 16;

std::uint32_t hexadecimal(const std::string &line, std::size_t column) {
  std::uint32_t value = 0;
  const char *begin = line.data() + column;
  const char *end = begin + kDigits;
  if (const auto [stop, status] = std::from_chars(begin, end, value, 16);
      status != std::errc() || stop != end)
    throw FormatError("not a line of a linker's map: " + line);
  return value;
}

/// Adds what one line says.
void readLine(const std::string &line, LinkMap &map) {
  if (line.size() <= kNameColumn)
    return;
  const std::size_t name = line.find_first_not_of(' ', kNameColumn);
  const Rva rva = hexadecimal(line, 0);
  if (name == kNameColumn + kChunkIndent) {
    const std::size_t bracket = line.find(":(", name);
    if (bracket == std::string::npos || line.back() != ')')
      throw FormatError("not a section of an object file: " + line);
    map.chunks.push_back({rva, hexadecimal(line, kSizeColumn), line.substr(name, bracket - name),
                          line.substr(bracket + 2, line.size() - bracket - 3), ""});
  } else if (name == kNameColumn + kSymbolIndent) {
    map.symbols.emplace(rva, line.substr(name));
    if (!map.chunks.empty() && map.chunks.back().rva == rva && map.chunks.back().symbol.empty())
      map.chunks.back().symbol = line.substr(name);
  }
}

} // namespace

LinkMap LinkMap::read(const std::filesystem::path &file) {
  std::ifstream stream(file);
  LinkMap result;
  std::string line;
  std::getline(stream, line); // the columns' names
  for (int number = 2; std::getline(stream, line); ++number) {
    // The compiler's mark of a name that is not to be decorated.
    std::erase(line, '\1');
    try {
      readLine(line, result);
    } catch (const FormatError &error) {
      throw FormatError(fmt::format("{}:{}: {}", file.string(), number, error.what()));
    }
  }
  if (result.chunks.empty())
    throw FormatError(file.string() + ": no map of an image");
  return result;
}

const Chunk *LinkMap::find(const std::string &symbol) const {
  const auto found = std::ranges::find(chunks, symbol, &Chunk::symbol);
  return found == chunks.end() ? nullptr : &*found;
}

bool isMethod(const Chunk &chunk) {
  return chunk.section.starts_with(".text$-[") || chunk.section.starts_with(".text$+[");
}

bool isShape(const Chunk &chunk) { return chunk.section.starts_with(".text$_ZN3wrt4callI"); }

} // namespace wrt::pe
