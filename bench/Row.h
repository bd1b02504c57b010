#ifndef WRT_BENCH_ROW_H
#define WRT_BENCH_ROW_H

#include <vector>

namespace wrt::bench {

/// One row of the table: the same operation three times.
struct Row {
  const char *name;
  /// The messages that the call has to send, the application's own among them. What they are
  /// follows from what a call is made of (`Messages.h`); `wrt_bench --count` compares it with what
  /// is sent.
  int messages;
  /// Through the generated bridge.
  void (*bridge)();
  /// By a method written out by hand that sends the same messages and makes the same platform and
  /// interface calls, clean-up list included.
  void (*written)();
  /// In C++ without Objective-C: the same platform calls as far as the operation itself needs them.
  void (*platform)();
};

/// All rows, in the order of the table.
const std::vector<Row> &rows();

} // namespace wrt::bench

#endif
