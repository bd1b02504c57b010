#include "generator/model/Sha1.h"

#include <bit>
#include <string>

namespace bridgegen {

namespace {

constexpr size_t kBlockSize = 64;

/// The message, a one bit, zeros up to the last eight bytes of a block, the length in bits.
std::string padded(std::string_view message) {
  std::string text(message);
  text += '\x80';
  while (text.size() % kBlockSize != kBlockSize - 8)
    text += '\0';
  const uint64_t bits = static_cast<uint64_t>(message.size()) * 8;
  for (int shift = 56; shift >= 0; shift -= 8)
    text += static_cast<char>(bits >> shift);
  return text;
}

struct Round {
  uint32_t function;
  uint32_t constant;
};

Round round(size_t step, uint32_t b, uint32_t c, uint32_t d) {
  if (step < 20)
    return {(b & c) | (~b & d), 0x5A827999};
  if (step < 40)
    return {b ^ c ^ d, 0x6ED9EBA1};
  if (step < 60)
    return {(b & c) | (b & d) | (c & d), 0x8F1BBCDC};
  return {b ^ c ^ d, 0xCA62C1D6};
}

void addBlock(std::array<uint32_t, 5> &state, const unsigned char *block) {
  std::array<uint32_t, 80> words{};
  for (size_t i = 0; i < 16; ++i)
    words[i] = static_cast<uint32_t>(block[4 * i] << 24 | block[4 * i + 1] << 16 |
                                     block[4 * i + 2] << 8 | block[4 * i + 3]);
  for (size_t i = 16; i < words.size(); ++i)
    words[i] = std::rotl(words[i - 3] ^ words[i - 8] ^ words[i - 14] ^ words[i - 16], 1);

  auto [a, b, c, d, e] = state;
  for (size_t i = 0; i < words.size(); ++i) {
    const auto [function, constant] = round(i, b, c, d);
    const uint32_t next = std::rotl(a, 5) + function + e + constant + words[i];
    e = d;
    d = c;
    c = std::rotl(b, 30);
    b = a;
    a = next;
  }
  const std::array<uint32_t, 5> added{a, b, c, d, e};
  for (size_t i = 0; i < state.size(); ++i)
    state[i] += added[i];
}

} // namespace

std::array<uint8_t, 20> sha1(std::string_view message) {
  std::array<uint32_t, 5> state{0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476, 0xC3D2E1F0};
  const std::string text = padded(message);
  for (size_t at = 0; at < text.size(); at += kBlockSize)
    addBlock(state, reinterpret_cast<const unsigned char *>(text.data()) + at);
  std::array<uint8_t, 20> digest{};
  for (size_t i = 0; i < digest.size(); ++i)
    digest[i] = static_cast<uint8_t>(state[i / 4] >> (24 - 8 * (i % 4)));
  return digest;
}

} // namespace bridgegen
