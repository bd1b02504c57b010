#ifndef WRT_PATCHER_FIXUP_RECORD_H
#define WRT_PATCHER_FIXUP_RECORD_H

#include "Services.h"

namespace wrt::startup {

/// The size of a record and of the table's header, in bytes.
inline constexpr std::uint32_t kFixupRecordSize = 16;

/// A little-endian word that need not be aligned.
inline std::uint32_t readWord(const std::uint8_t *bytes) {
  return bytes[0] | bytes[1] << 8 | bytes[2] << 16 | static_cast<std::uint32_t>(bytes[3]) << 24;
}

/// Stores a little-endian word at a place that need not be aligned.
inline void writeWord(std::uint8_t *bytes, std::uint32_t value) {
  for (int i = 0; i < 4; ++i)
    bytes[i] = static_cast<std::uint8_t>(value >> 8 * i);
}

/// One entry of the fixup table: a place in the image that must hold the address of something in
/// another library, at an offset. The loader leaves that address in an import slot.
struct FixupRecord {
  enum Kind : std::uint32_t {
    kNothing = 0x00,
    kWord = 0x01,
    /// A Thumb-2 MOVW with the low half and, right after it, a MOVT with the high half.
    kMovePair = 0x11
  };

  Address target;
  std::uint32_t addend;
  Address slot;
  std::uint32_t kindWord;

  explicit FixupRecord(const std::uint8_t *bytes)
      : target(readWord(bytes) & ~1u), // bit 0 marks Thumb code
        addend(readWord(bytes + 4)), slot(readWord(bytes + 8)), kindWord(readWord(bytes + 12)) {}

  std::uint32_t kind() const { return (kindWord & 0xFFF) >> 4; }
  /// How many bytes at the target belong to the patch.
  std::uint32_t length() const { return kind() == kMovePair ? 8 : 4; }
  /// The address of the patch's last byte.
  Address last() const { return target + length() - 1; }
};

/// Orders records in their stored form by target, for `qsort`.
inline int compareRecords(const void *left, const void *right) {
  const std::uint32_t a = readWord(static_cast<const std::uint8_t *>(left));
  const std::uint32_t b = readWord(static_cast<const std::uint8_t *>(right));
  return a < b ? -1 : a > b;
}

} // namespace wrt::startup

#endif
