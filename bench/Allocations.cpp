#include "bench/Allocations.h"

#include <cstddef>

// The C library's own entry points (glibc), behind the ones that count.
extern "C" void *__libc_malloc(size_t size);
extern "C" void *__libc_calloc(size_t count, size_t size);
extern "C" void *__libc_realloc(void *block, size_t size);

namespace {

thread_local uint64_t count = 0;

} // namespace

extern "C" void *malloc(size_t size) {
  ++count;
  return __libc_malloc(size);
}

extern "C" void *calloc(size_t number, size_t size) {
  ++count;
  return __libc_calloc(number, size);
}

extern "C" void *realloc(void *block, size_t size) {
  ++count;
  return __libc_realloc(block, size);
}

namespace wrt::bench {

uint64_t allocations() { return count; }

} // namespace wrt::bench
