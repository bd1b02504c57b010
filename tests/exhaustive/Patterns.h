#ifndef WRT_TESTS_PATTERNS_H
#define WRT_TESTS_PATTERNS_H

#include "debug/Encoding.h"

#include <cstdint>
#include <vector>

namespace wrt::test {

using debug::EncodedType;
using Bytes = std::vector<std::uint8_t>;

/// How many bytes a pointer has where the values are used; that place defines it.
extern const std::uint32_t kPointerSize;

std::uint32_t roundUp(std::uint32_t value, std::uint32_t alignment);
/// In bytes.
std::uint32_t sizeOf(const EncodedType &type);
std::uint32_t alignmentOf(const EncodedType &type);

/// Bytes that tell values apart: a number of every width, no NaN among floats, `true` or `false`
/// for a boolean.
Bytes pattern(const EncodedType &type, int seed);
/// Whether two values agree in every field; what lies between fields does not count.
bool areEqual(const EncodedType &type, const std::uint8_t *left, const std::uint8_t *right);

} // namespace wrt::test

#endif
