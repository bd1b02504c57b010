#ifndef WRT_COMPONENTS_SHA1_H
#define WRT_COMPONENTS_SHA1_H

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

namespace wrt::implement {

/// SHA-1 (RFC 3174) of a message that comes byte by byte, at compile time as well.
class Sha1 {
public:
  constexpr void add(uint8_t byte) {
    block_[length_++ % kBlockSize] = byte;
    if (length_ % kBlockSize == 0)
      mix();
  }

  /// The digest of everything added; nothing may be added after it.
  constexpr std::array<uint8_t, 20> finish() {
    const uint64_t bits = length_ * 8;
    add(0x80);
    while (length_ % kBlockSize != kBlockSize - 8)
      add(0);
    for (int shift = 56; shift >= 0; shift -= 8)
      add(static_cast<uint8_t>(bits >> shift));
    std::array<uint8_t, 20> digest{};
    for (size_t i = 0; i < digest.size(); ++i)
      digest[i] = static_cast<uint8_t>(state_[i / 4] >> (24 - 8 * (i % 4)));
    return digest;
  }

private:
  static constexpr size_t kBlockSize = 64;

  constexpr void mix() {
    uint32_t words[80]{};
    for (size_t i = 0; i < 16; ++i) {
      for (size_t byte = 0; byte < 4; ++byte)
        words[i] = words[i] << 8 | block_[4 * i + byte];
    }
    for (size_t i = 16; i < 80; ++i)
      words[i] = std::rotl(words[i - 3] ^ words[i - 8] ^ words[i - 14] ^ words[i - 16], 1);

    auto [a, b, c, d, e] = state_;
    for (size_t i = 0; i < 80; ++i) {
      uint32_t function = b ^ c ^ d;
      uint32_t constant = 0;
      if (i < 20) {
        function = (b & c) | (~b & d);
        constant = 0x5A827999;
      } else if (i < 40) {
        constant = 0x6ED9EBA1;
      } else if (i < 60) {
        function = (b & c) | (b & d) | (c & d);
        constant = 0x8F1BBCDC;
      } else {
        constant = 0xCA62C1D6;
      }
      const uint32_t next = std::rotl(a, 5) + function + e + constant + words[i];
      e = d;
      d = c;
      c = std::rotl(b, 30);
      b = a;
      a = next;
    }
    const uint32_t sums[] = {a, b, c, d, e};
    for (size_t i = 0; i < state_.size(); ++i)
      state_[i] += sums[i];
  }

  std::array<uint32_t, 5> state_{0x67452301, 0xEFCDAB89, 0x98BADCFE, 0x10325476, 0xC3D2E1F0};
  uint8_t block_[kBlockSize]{};
  uint64_t length_ = 0;
};

} // namespace wrt::implement

#endif
