#ifndef WRT_TOOLS_FIXUP_TABLE_H
#define WRT_TOOLS_FIXUP_TABLE_H

#include "PortableExecutable.h"

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

namespace wrt::pe {

/// A record of the library's fixup table, with addresses counted from the image's base.
struct FixupRecord {
  Rva target;
  std::uint64_t addend;
  Rva slot;
  std::uint64_t kindWord;

  bool operator==(const FixupRecord &) const = default;
};

/// The kind word of a record that stores a word as wide as a pointer.
inline constexpr std::uint64_t kWordFixup = 0x10;

/// What an image needs and what it has.
struct FixupTable {
  /// The image's words that hold the address of an import slot, by target: what the table has to
  /// be.
  std::vector<FixupRecord> needed;
  /// The records that the table in the image has, in its order.
  std::vector<FixupRecord> present;
  /// Words of constant strings that hold the address of an import slot; start-up's constant-string
  /// pass fills them.
  std::size_t constantStrings = 0;

  /// Reads both from an image that the patcher is linked into. Throws `FormatError`, also when a
  /// word points into the import section and not at a slot, or code does.
  static FixupTable read(const Image &image);
};

/// Writes the records that `image` needs as assembler source for the section between the table's
/// header and end.
void writeAssembly(const Image &image, const FixupTable &table, std::ostream &out);

/// Compares the table in the image with what the image needs, record by record, and looks whether
/// its words are relocated with the image. Returns what is wrong, the record named; empty when all
/// is well.
std::vector<std::string> checkTable(const Image &image, const FixupTable &table);

} // namespace wrt::pe

#endif
