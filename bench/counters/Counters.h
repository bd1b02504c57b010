#ifndef WRT_BENCH_COUNTERS_H
#define WRT_BENCH_COUNTERS_H

#include <cstdint>

namespace wrt::bench {

/// What code of ours asked the Objective-C runtime for.
struct Counts {
  /// Messages sent by the library, by `libzorvex` or by the program itself.
  uint64_t messages = 0;
  /// Classes looked up by their names by any of our libraries; the program's own are left out.
  uint64_t lookUps = 0;
};

} // namespace wrt::bench

/// Stores the counts since the process was started, on all threads. Exported by
/// `libwrt_counters.so` alone, which has to be preloaded.
extern "C" void wrtReadCounts(wrt::bench::Counts *counts);

#endif
