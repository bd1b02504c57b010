#ifndef WRT_GENERATOR_SHA1_H
#define WRT_GENERATOR_SHA1_H

#include <array>
#include <cstdint>
#include <string_view>

namespace bridgegen {

/// The SHA-1 digest of `message` (FIPS 180-4).
std::array<uint8_t, 20> sha1(std::string_view message);

} // namespace bridgegen

#endif
