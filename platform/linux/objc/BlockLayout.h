/// What the compiler lays down for blocks and for `__block` variables (Block ABI, Apple 2010, as
/// clang 19 emits it).
#ifndef WRT_BLOCK_LAYOUT_H
#define WRT_BLOCK_LAYOUT_H

#include <cstdint>

namespace wrt::block {

/// Bits of a block's and of a `__block` variable's flag word.
inline constexpr int32_t kOnHeap = 1 << 24;         ///< set by this runtime when it made the copy
inline constexpr int32_t kHasCopyDispose = 1 << 25; ///< the copy and dispose helpers exist
inline constexpr int32_t kIsGlobal = 1 << 28; ///< a block that captures nothing, in static data
/// Where a `__block` variable on the heap counts its references.
inline constexpr int32_t kReferenceMask = 0x00FFFFFF;

/// What the compiler says a captured field is.
inline constexpr int kFieldIsObject = 3;
inline constexpr int kFieldIsBlock = 7;
inline constexpr int kFieldIsByref = 8;
inline constexpr int kFieldIsWeak = 16;

struct Descriptor {
  unsigned long reserved;
  unsigned long size; ///< of the whole block in bytes, captured fields included
  // Only with kHasCopyDispose:
  void (*copy)(void *to, const void *from);
  void (*dispose)(const void *block);
};

struct Block {
  const void *isa;
  int32_t flags;
  int32_t references; ///< of a block on the heap; reserved and 0 elsewhere
  void (*invoke)(void *block, ...);
  const Descriptor *descriptor;
};

struct Byref {
  const void *isa;
  Byref *forwarding; ///< where the variable is: itself on the stack, or its copy on the heap
  int32_t flags;
  uint32_t size; ///< of the whole variable in bytes
  // Only with kHasCopyDispose:
  void (*keep)(Byref *to, Byref *from);
  void (*destroy)(Byref *variable);
};

} // namespace wrt::block

#endif
