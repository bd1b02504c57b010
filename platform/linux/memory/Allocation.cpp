#include "platform/linux/memory/Allocation.h"

#include <cstdio>
#include <cstdlib>
#include <new>

namespace {

thread_local int catchers = 0;

} // namespace

namespace wrt::memory {

FailuresAreCaught::FailuresAreCaught() { ++catchers; }
FailuresAreCaught::~FailuresAreCaught() { --catchers; }

} // namespace wrt::memory

/// The linker takes this for the `operator new` of this library's own code (`--wrap`), and of
/// nobody else's.
extern "C" void *__wrap__Znwm(std::size_t size) { // NOLINT(bugprone-reserved-identifier)
  if (void *memory = ::operator new(size, std::nothrow))
    return memory;
  if (catchers > 0)
    throw std::bad_alloc();
  std::fprintf(stderr, "WRTBridge_zorvex: no memory for %zu bytes\n", size);
  std::abort();
}
