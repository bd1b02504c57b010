// The functions of the C runtime that call back into the image or are too simple to leave to the
// host: they run as ARM code like everything else.
#include <cstddef>
#include <cstdint>

#define EXPORT extern "C" __declspec(dllexport)

EXPORT void qsort(void *records, std::size_t count, std::size_t size,
                  int (*compare)(const void *, const void *)) {
  auto *bytes = static_cast<std::uint8_t *>(records);
  for (std::size_t i = 1; i < count; ++i)
    for (std::size_t j = i; j > 0; --j) {
      std::uint8_t *upper = bytes + j * size;
      std::uint8_t *lower = upper - size;
      if (compare(lower, upper) <= 0)
        break;
      for (std::size_t k = 0; k < size; ++k) {
        const std::uint8_t byte = upper[k];
        upper[k] = lower[k];
        lower[k] = byte;
      }
    }
}

EXPORT int strncmp(const char *left, const char *right, std::size_t limit) {
  for (; limit > 0; --limit, ++left, ++right) {
    const auto a = static_cast<unsigned char>(*left);
    const auto b = static_cast<unsigned char>(*right);
    if (a != b || a == 0)
      return a - b;
  }
  return 0;
}

EXPORT int _initterm_e(int (*const *first)(), int (*const *last)()) {
  for (; first < last; ++first)
    if (*first)
      if (const int result = (*first)())
        return result;
  return 0;
}

EXPORT void _initterm(void (*const *first)(), void (*const *last)()) {
  for (; first < last; ++first)
    if (*first)
      (*first)();
}
