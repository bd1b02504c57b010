#include "tests/exhaustive/Patterns.h"

#include <algorithm>
#include <cstring>

namespace wrt::test {

namespace {

/// The fields with their offsets.
template <class Visit>
void forEachField(const EncodedType &type, Visit visit) {
  std::uint32_t offset = 0;
  for (const EncodedType &field : type.fields) {
    offset = roundUp(offset, alignmentOf(field));
    visit(field, offset);
    offset += sizeOf(field);
  }
}

template <class T>
Bytes bytesOf(T value) {
  Bytes bytes(sizeof value);
  std::memcpy(bytes.data(), &value, sizeof value);
  return bytes;
}

} // namespace

std::uint32_t roundUp(std::uint32_t value, std::uint32_t alignment) {
  return (value + alignment - 1) / alignment * alignment;
}

std::uint32_t sizeOf(const EncodedType &type) {
  if (type.isStructure()) {
    std::uint32_t end = 0;
    forEachField(type, [&](const EncodedType &field, std::uint32_t offset) {
      end = offset + sizeOf(field);
    });
    return roundUp(end, alignmentOf(type));
  }
  if (type.kind == 'v')
    return 0;
  return type.ffi() == &ffi_type_pointer ? kPointerSize
                                         : static_cast<std::uint32_t>(type.ffi()->size);
}

std::uint32_t alignmentOf(const EncodedType &type) {
  if (!type.isStructure())
    return std::max(sizeOf(type), 1u);
  std::uint32_t alignment = 1;
  for (const EncodedType &field : type.fields)
    alignment = std::max(alignment, alignmentOf(field));
  return alignment;
}

Bytes pattern(const EncodedType &type, int seed) {
  if (type.isStructure()) {
    Bytes bytes(sizeOf(type));
    forEachField(type, [&](const EncodedType &field, std::uint32_t offset) {
      std::ranges::copy(pattern(field, ++seed), bytes.begin() + offset);
    });
    return bytes;
  }
  if (type.kind == 'f')
    return bytesOf(1.5f + static_cast<float>(seed));
  if (type.kind == 'd')
    return bytesOf(-2.5 - seed);
  if (type.kind == 'B')
    return {static_cast<std::uint8_t>(seed & 1)};
  Bytes bytes(sizeOf(type));
  for (std::size_t i = 0; i < bytes.size(); ++i)
    bytes[i] = static_cast<std::uint8_t>(0x81 + 7 * static_cast<std::size_t>(seed) + i);
  return bytes;
}

bool areEqual(const EncodedType &type, const std::uint8_t *left, const std::uint8_t *right) {
  if (!type.isStructure())
    return std::equal(left, left + sizeOf(type), right);
  bool equal = true;
  forEachField(type, [&](const EncodedType &field, std::uint32_t offset) {
    equal = equal && areEqual(field, left + offset, right + offset);
  });
  return equal;
}

} // namespace wrt::test
