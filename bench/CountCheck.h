#ifndef WRT_BENCH_COUNT_CHECK_H
#define WRT_BENCH_COUNT_CHECK_H

namespace wrt::bench {

/// Counts for each row the messages that its call sends, and the classes that our code looks up by
/// name, with the counters of `libwrt_counters.so`, and prints them. Whether each row sends what it
/// declares and looks nothing up.
bool checkCounts();

} // namespace wrt::bench

#endif
