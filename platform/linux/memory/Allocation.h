#ifndef WRT_MEMORY_ALLOCATION_H
#define WRT_MEMORY_ALLOCATION_H

#include <WRTObjcBridge/WRTTypes.h>

namespace wrt::memory {

/// While one lives, this thread's allocations in the platform throw `std::bad_alloc` when there is
/// no memory, for somebody near who makes a status of it. Elsewhere they end the process with a
/// line: nothing may unwind through interface functions and through the library.
class WRT_DLLEXPORT FailuresAreCaught {
public:
  FailuresAreCaught();
  FailuresAreCaught(const FailuresAreCaught &) = delete;
  FailuresAreCaught &operator=(const FailuresAreCaught &) = delete;
  ~FailuresAreCaught();
};

} // namespace wrt::memory

#endif
