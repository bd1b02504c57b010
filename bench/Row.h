#ifndef WRT_BENCH_ROW_H
#define WRT_BENCH_ROW_H

#include <vector>

namespace wrt::bench {

/// One row of the table: the same operation three times.
struct Row {
  const char *name;
  /// Through the generated bridge.
  void (*bridge)();
  /// By a method written out by hand that sends the same messages and makes the same platform and
  /// interface calls, clean-up list included.
  void (*messages)();
  /// In C++ without Objective-C: the same platform calls as far as the operation itself needs them.
  void (*platform)();
};

/// All rows, in the order of the table.
const std::vector<Row> &rows();

} // namespace wrt::bench

#endif
