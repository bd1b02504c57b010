#ifndef WRT_TOOLS_LINK_MAP_H
#define WRT_TOOLS_LINK_MAP_H

#include "PortableExecutable.h"

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace wrt::pe {

/// A section of an object file where the linker has put it.
struct Chunk {
  Rva rva;
  /// In bytes.
  std::uint32_t size;
  /// The object file's path.
  std::string file;
  /// As the object file names it: `.text$-[Class selector]`, `.rdata$_ZN...`.
  std::string section;
  /// The first symbol at its beginning, demangled; empty when there is none.
  std::string symbol;
};

/// What lld's map (`/lldmap`) says of an image.
struct LinkMap {
  /// In ascending order of addresses.
  std::vector<Chunk> chunks;
  /// The first symbol at each address.
  std::map<Rva, std::string> symbols;

  /// Throws `FormatError` when the file cannot be read, has no chunks or, with the line's number,
  /// has another form.
  static LinkMap read(const std::filesystem::path &file);

  /// The chunk that begins with the symbol, or null.
  const Chunk *find(const std::string &symbol) const;
};

/// Whether the chunk is the code of an Objective-C method.
bool isMethod(const Chunk &chunk);
/// Whether it is the code of a shape: an instantiation of the call that all its members share.
bool isShape(const Chunk &chunk);

} // namespace wrt::pe

#endif
