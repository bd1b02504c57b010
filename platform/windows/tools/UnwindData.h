#ifndef WRT_TOOLS_UNWIND_DATA_H
#define WRT_TOOLS_UNWIND_DATA_H

#include "PortableExecutable.h"

#include <cstdint>
#include <vector>

namespace wrt::pe {

/// One step back from a function's body to its caller.
struct UnwindStep {
  enum Kind : std::uint8_t {
    kAddToStack, ///< `value` bytes
    kPop,        ///< the core registers of the mask `value`, r0 the lowest bit, lr bit 14
    kPopDouble,  ///< the double registers of the mask `value`
    kStackFrom,  ///< the stack pointer from core register `value`
    kLoadLink    ///< lr from the stack, which then goes up by `value` bytes
  } kind;
  std::uint32_t value;
};

/// What the image says of a function: how to leave it.
struct UnwindRecord {
  /// Without the Thumb bit.
  Rva begin;
  /// In bytes.
  std::uint32_t length;
  std::vector<UnwindStep> steps;

  bool contains(Rva address) const { return address - begin < length; }
};

/// The image's records, in the order of their functions. Throws `FormatError` for one that cannot
/// be read. (Microsoft, "ARM exception handling".)
std::vector<UnwindRecord> readUnwindRecords(const Image &image);
/// The record of the function that contains the address, or null.
const UnwindRecord *findRecord(const std::vector<UnwindRecord> &records, Rva address);

} // namespace wrt::pe

#endif
