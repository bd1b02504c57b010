#ifndef WRT_BENCH_ALLOCATIONS_H
#define WRT_BENCH_ALLOCATIONS_H

#include <cstdint>

namespace wrt::bench {

/// How often this thread has asked for heap memory.
uint64_t allocations();

} // namespace wrt::bench

#endif
