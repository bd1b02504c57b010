#ifndef WRT_PATCHER_ARCHITECTURE_H
#define WRT_PATCHER_ARCHITECTURE_H

#include "MovePair.h"

#include <cstdint>

/// What start-up has to know of the architecture that it patches images for: the width of pointers,
/// and which instructions a fixup can change.
namespace wrt::startup {

/// Windows on ARMv7, the product's.
struct Armv7 {
  /// A place in the process's memory; what the image's pointers hold.
  using Address = std::uint32_t;
  /// The kind of a fixup that changes instructions, and their length in bytes.
  static constexpr std::uint32_t kInstructionKind = 0x11;
  static constexpr std::uint32_t kInstructionLength = 8;

  /// Where a patch lies: bit 0 of an address marks Thumb code.
  static Address place(Address target) { return target & ~Address{1}; }

  /// Makes the instructions load `value`.
  static void setInstructions(std::uint8_t *instructions, Address value) {
    setMovePair(reinterpret_cast<std::uint16_t *>(instructions), value);
  }
};

/// Windows on 64-bit ARM, where code takes addresses from words of data, and only those are fixed.
struct Arm64 {
  using Address = std::uint64_t;
  static constexpr std::uint32_t kInstructionKind = 0x100; ///< which no record can say
  static constexpr std::uint32_t kInstructionLength = 0;

  static Address place(Address target) { return target; }
  static void setInstructions(std::uint8_t *, Address) {}
};

/// The architecture that this is compiled for; a test that runs elsewhere takes the product's.
#if defined(_WIN32) && defined(__aarch64__)
using ThisArchitecture = Arm64;
#else
using ThisArchitecture = Armv7;
#endif

} // namespace wrt::startup

#endif
