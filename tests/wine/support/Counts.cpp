#include "tests/wine/support/Counts.h"

#include <cstdio>

namespace wrt::test {

int reportCounts(int passed, int failed, int skipped) {
  std::printf("%d passed, %d failed, %d skipped\n", passed, failed, skipped);
  return failed == 0 && passed > 0 ? 0 : 1;
}

} // namespace wrt::test
