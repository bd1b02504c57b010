#ifndef WRT_PATCHER_FIXUP_RECORD_H
#define WRT_PATCHER_FIXUP_RECORD_H

#include "Services.h"

#include <bit>
#include <cstring>

namespace wrt::startup {

// As images have their words.
static_assert(std::endian::native == std::endian::little);

/// A word that need not be aligned.
template <class Word = std::uint32_t>
Word readWord(const std::uint8_t *bytes) {
  Word word;
  std::memcpy(&word, bytes, sizeof word);
  return word;
}

/// Stores a word at a place that need not be aligned.
template <class Word>
void writeWord(std::uint8_t *bytes, Word value) {
  std::memcpy(bytes, &value, sizeof value);
}

/// One entry of the fixup table: a place in the image that must hold the address of something in
/// another library, at an offset. The loader leaves that address in an import slot.
template <class Architecture>
struct FixupRecord {
  using Address = typename Architecture::Address;

  enum Kind : std::uint32_t {
    kNothing = 0x00,
    kWord = 0x01, ///< as wide as a pointer
    kInstructions = Architecture::kInstructionKind
  };

  /// The size of a record and of the table's header, in bytes.
  static constexpr std::uint32_t kSize = 4 * sizeof(Address);

  Address target;
  Address addend;
  Address slot;
  Address kindWord;

  explicit FixupRecord(const std::uint8_t *bytes)
      : target(Architecture::place(field(bytes, 0))), addend(field(bytes, 1)),
        slot(field(bytes, 2)), kindWord(field(bytes, 3)) {}

  std::uint32_t kind() const { return (kindWord & 0xFFF) >> 4; }
  /// How many bytes at the target belong to the patch.
  std::uint32_t length() const {
    return kind() == kInstructions ? Architecture::kInstructionLength : sizeof(Address);
  }
  /// The address of the patch's last byte.
  Address last() const { return target + length() - 1; }

  /// Orders records in their stored form by target, for `qsort`.
  static int compare(const void *left, const void *right) {
    const Address a = field(static_cast<const std::uint8_t *>(left), 0);
    const Address b = field(static_cast<const std::uint8_t *>(right), 0);
    return a < b ? -1 : a > b;
  }

private:
  static Address field(const std::uint8_t *record, std::size_t index) {
    return readWord<Address>(record + index * sizeof(Address));
  }
};

} // namespace wrt::startup

#endif
