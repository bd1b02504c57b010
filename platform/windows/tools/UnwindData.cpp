#include "UnwindData.h"

#include <fmt/core.h>

#include <algorithm>

namespace wrt::pe {

namespace {

constexpr std::uint32_t kLink = 1u << 14;

/// The mask of registers `first` to `last`.
std::uint32_t range(std::uint32_t first, std::uint32_t last) {
  return (2u << last) - (1u << first);
}

/// A number of bits of a word.
std::uint32_t bits(std::uint32_t word, int first, int count) {
  return word >> first & ((1u << count) - 1);
}

/// The steps of a record that is one word.
std::vector<UnwindStep> unpack(std::uint32_t word) {
  const std::uint32_t adjustment = bits(word, 22, 10);
  const std::uint32_t registers = bits(word, 16, 3);
  const bool floating = bits(word, 19, 1);
  std::vector<UnwindStep> steps;
  // From 0x3F4 on the low bits say how many words a push of further registers has made.
  const std::uint32_t words = adjustment < 0x3F4 ? adjustment : (adjustment & 3) + 1;
  if (words)
    steps.push_back({UnwindStep::kAddToStack, 4 * words});
  if (floating && registers < 7)
    steps.push_back({UnwindStep::kPopDouble, range(8, 8 + registers)});
  std::uint32_t mask = floating ? 0 : range(4, 4 + registers);
  mask |= bits(word, 21, 1) << 11 | bits(word, 20, 1) << 14;
  if (mask)
    steps.push_back({UnwindStep::kPop, mask});
  if (bits(word, 15, 1))
    steps.push_back({UnwindStep::kAddToStack, 16});
  return steps;
}

/// Reads the codes of a function's body, the last step of its prologue first.
class Codes {
public:
  Codes(const Image &image, Rva at, Rva end) : image_(image), at_(at), end_(end) {}

  std::vector<UnwindStep> read() {
    std::vector<UnwindStep> steps;
    for (;;) {
      const std::uint32_t code = next();
      if (code >= 0xFD)
        return steps;
      if (code != 0xFB && code != 0xFC) // instructions without effect
        steps.push_back(step(code));
    }
  }

private:
  std::uint32_t next() {
    if (at_ == end_)
      throw FormatError("unwind codes without an end");
    return image_.u8(at_++);
  }

  std::uint32_t more(std::uint32_t value, int bytes) {
    while (bytes-- > 0)
      value = value << 8 | next();
    return value;
  }

  UnwindStep step(std::uint32_t code) {
    using enum UnwindStep::Kind;
    if (code < 0x80)
      return {kAddToStack, 4 * code};
    if (code < 0xC0) {
      const std::uint32_t wide = more(code, 1);
      return {kPop, bits(wide, 0, 13) | bits(wide, 13, 1) << 14};
    }
    if (code < 0xD0)
      return {kStackFrom, code & 15};
    if (code < 0xE0)
      return {kPop, range(4, (code & 3) + (code < 0xD8 ? 4 : 8)) | (code & 4 ? kLink : 0)};
    if (code < 0xE8)
      return {kPopDouble, range(8, (code & 7) + 8)};
    if (code < 0xEC)
      return {kAddToStack, 4 * bits(more(code, 1), 0, 10)};
    if (code < 0xEE) {
      const std::uint32_t wide = more(code, 1);
      return {kPop, bits(wide, 0, 8) | bits(wide, 8, 1) << 14};
    }
    switch (code) {
    case 0xEF:
      return {kLoadLink, 4 * (next() & 15)};
    case 0xF5:
    case 0xF6: {
      const std::uint32_t bounds = next();
      const std::uint32_t first = code == 0xF5 ? 0 : 16;
      return {kPopDouble, range(first + (bounds >> 4), first + (bounds & 15))};
    }
    case 0xF7:
    case 0xF9:
      return {kAddToStack, 4 * more(0, 2)};
    case 0xF8:
    case 0xFA:
      return {kAddToStack, 4 * more(0, 3)};
    default:
      throw FormatError(fmt::format("there is no unwind code {:#x}", code));
    }
  }

  const Image &image_;
  Rva at_;
  Rva end_;
};

UnwindRecord readExtended(const Image &image, Rva begin, Rva at) {
  const std::uint32_t header = image.u32(at);
  std::uint32_t scopes = bits(header, 23, 5);
  std::uint32_t words = bits(header, 28, 4);
  at += 4;
  if (bits(header, 18, 2) != 0)
    throw FormatError("unwind data of another version");
  if (scopes == 0 && words == 0) {
    const std::uint32_t extension = image.u32(at);
    scopes = bits(extension, 0, 16);
    words = bits(extension, 16, 8);
    at += 4;
  }
  // With bit E there is one epilogue, and its place stands in the field of their number.
  if (!bits(header, 21, 1))
    at += 4 * scopes;
  return {begin, 2 * bits(header, 0, 18), Codes(image, at, at + 4 * words).read()};
}

} // namespace

std::vector<UnwindRecord> readUnwindRecords(const Image &image) {
  std::vector<UnwindRecord> records;
  const Section *section = image.findSection(".pdata");
  if (!section)
    return records;
  for (Rva at = section->rva; at + 8 <= section->rva + section->virtualSize; at += 8) {
    const Rva begin = image.u32(at) & ~1u;
    const std::uint32_t second = image.u32(at + 4);
    try {
      records.push_back(second & 3 ? UnwindRecord{begin, 2 * bits(second, 2, 11), unpack(second)}
                                   : readExtended(image, begin, second));
    } catch (const FormatError &error) {
      throw FormatError(
          fmt::format("unwind record of {}: {}", image.describe(begin), error.what()));
    }
  }
  return records;
}

const UnwindRecord *findRecord(const std::vector<UnwindRecord> &records, Rva address) {
  const auto next = std::ranges::upper_bound(records, address, {}, &UnwindRecord::begin);
  if (next == records.begin() || !std::prev(next)->contains(address))
    return nullptr;
  return &*std::prev(next);
}

} // namespace wrt::pe
