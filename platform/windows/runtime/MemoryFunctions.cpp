// The memory functions that compiled code calls by itself. They are small and here so that the
// library needs no compiler support library. Compiled with -fno-builtin: a loop must not become a
// call of the function it is in.
#include <cstddef>
#include <cstdint>

extern "C" {

void *memcpy(void *target, const void *source, std::size_t size) {
  auto *to = static_cast<std::uint8_t *>(target);
  const auto *from = static_cast<const std::uint8_t *>(source);
  while (size-- > 0)
    *to++ = *from++;
  return target;
}

void *memmove(void *target, const void *source, std::size_t size) {
  auto *to = static_cast<std::uint8_t *>(target);
  const auto *from = static_cast<const std::uint8_t *>(source);
  if (reinterpret_cast<std::uintptr_t>(to) <= reinterpret_cast<std::uintptr_t>(from))
    return memcpy(target, source, size);
  while (size-- > 0)
    to[size] = from[size];
  return target;
}

/// What is filled on the path of a call are cells, which are words.
void *memset(void *target, int value, std::size_t size) {
  auto *to = static_cast<std::uint8_t *>(target);
  if (value == 0 && reinterpret_cast<std::uintptr_t>(to) % sizeof(std::uint32_t) == 0) {
    for (; size >= sizeof(std::uint32_t);
         size -= sizeof(std::uint32_t), to += sizeof(std::uint32_t))
      *reinterpret_cast<std::uint32_t *>(to) = 0;
  }
  while (size-- > 0)
    *to++ = static_cast<std::uint8_t>(value);
  return target;
}

int memcmp(const void *left, const void *right, std::size_t size) {
  const auto *a = static_cast<const std::uint8_t *>(left);
  const auto *b = static_cast<const std::uint8_t *>(right);
  for (; size > 0; --size, ++a, ++b)
    if (*a != *b)
      return *a - *b;
  return 0;
}
}
