#include "MovePair.h"

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>
#include <iterator>
#include <vector>

namespace wrt::startup {
namespace {

struct Pair {
  std::uint16_t halfwords[4];
};

/// MOVW r3 and MOVT r11 of each immediate, as the assembler encoded them.
std::vector<Pair> assembled() {
  std::ifstream file(WRT_MOVE_ENCODINGS, std::ios::binary);
  const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
  std::vector<Pair> pairs(bytes.size() / sizeof(Pair));
  std::memcpy(pairs.data(), bytes.data(), pairs.size() * sizeof(Pair));
  return pairs;
}

TEST(MovePair, EveryImmediateIsEncodedAsTheAssemblerDoes) {
  const auto pairs = assembled();
  ASSERT_EQ(pairs.size(), 65536u);
  for (std::uint32_t value = 0; value <= 0xFFFF; ++value) {
    // From the encodings of the opposite immediate: what was there must not shine through.
    Pair pair = pairs[~value & 0xFFFF];
    const std::uint32_t high = value * 40503 & 0xFFFF;
    setMovePair(pair.halfwords, value | high << 16);
    ASSERT_EQ(0, std::memcmp(&pair.halfwords[0], &pairs[value].halfwords[0], 4)) << value;
    ASSERT_EQ(0, std::memcmp(&pair.halfwords[2], &pairs[high].halfwords[2], 4)) << value;
  }
}

TEST(MovePair, OpcodeAndRegisterStay) {
  constexpr std::uint32_t kImmediateBits[2] = {0x040F, 0x70FF};
  for (std::uint32_t word = 0; word <= 0xFFFF; word += 7) {
    const auto first = static_cast<std::uint16_t>(word & ~0x80u);
    std::uint16_t pair[4] = {first, static_cast<std::uint16_t>(~word), first,
                             static_cast<std::uint16_t>(word * 3)};
    const std::vector<std::uint16_t> before(pair, pair + 4);
    setMovePair(pair, 0x89ABCDEF);
    for (int i = 0; i < 4; ++i)
      ASSERT_EQ(pair[i] & ~kImmediateBits[i % 2], before[i] & ~kImmediateBits[i % 2]) << word;
  }
}

TEST(MovePair, BitSevenOfTheFirstHalfwordDecides) {
  for (std::uint32_t word = 0; word <= 0xFFFF; word += 3) {
    std::uint16_t pair[4] = {static_cast<std::uint16_t>(word), 0, 0, 0};
    setMovePair(pair, 0xFFFFFFFF);
    ASSERT_EQ(pair[1] != 0 && pair[3] != 0, (word & 0x80) == 0) << std::hex << word;
  }
}

} // namespace
} // namespace wrt::startup
