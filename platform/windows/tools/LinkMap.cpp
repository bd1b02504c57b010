#include "LinkMap.h"

#include "Text.h"

#include <algorithm>
#include <fstream>

namespace wrt::pe {

namespace {

// Columns of a line, and what the indentation behind the numbers says of it.
constexpr std::size_t kSizeColumn = 9;
constexpr std::size_t kNameColumn = 24;
constexpr std::size_t kChunkIndent = 8;
constexpr std::size_t kSymbolIndent = 16;

std::uint32_t hexadecimal(const std::string &line, std::size_t column) {
  return static_cast<std::uint32_t>(std::stoul(line.substr(column, 8), nullptr, 16));
}

} // namespace

LinkMap LinkMap::read(const std::filesystem::path &file) {
  std::ifstream stream(file);
  LinkMap result;
  std::string line;
  std::getline(stream, line); // the columns' names
  while (std::getline(stream, line)) {
    // The compiler's mark of a name that is not to be decorated.
    std::erase(line, '\1');
    if (line.size() <= kNameColumn)
      continue;
    const std::size_t name = line.find_first_not_of(' ', kNameColumn);
    const Rva rva = hexadecimal(line, 0);
    if (name == kNameColumn + kChunkIndent) {
      const std::size_t bracket = line.find(":(", name);
      if (bracket == std::string::npos || line.back() != ')')
        throw FormatError(join(file.string(), ": not a section of an object file: ", line));
      result.chunks.push_back({rva, hexadecimal(line, kSizeColumn),
                               line.substr(name, bracket - name),
                               line.substr(bracket + 2, line.size() - bracket - 3), ""});
    } else if (name == kNameColumn + kSymbolIndent) {
      result.symbols.emplace(rva, line.substr(name));
      if (!result.chunks.empty() && result.chunks.back().rva == rva &&
          result.chunks.back().symbol.empty())
        result.chunks.back().symbol = line.substr(name);
    }
  }
  if (result.chunks.empty())
    throw FormatError(join(file.string(), ": no map of an image"));
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
