// Wine's classes through the bridges: every member in the list of expectations.
// Usage: CLASSES EXPECTATIONS

#include "tests/wine/classes/Members.h"
#include "tests/wine/support/Counts.h"

#include <cstdio>

using namespace wrt::test;

int main(int argc, char **argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc != 2) {
    std::fprintf(stderr, "Usage: classes EXPECTATIONS\n");
    return 2;
  }
  readExpectations(argv[1]);
  const int status = RUN_ALL_TESTS();
  const testing::UnitTest &all = *testing::UnitTest::GetInstance();
  const int result = reportCounts(all.successful_test_count(), all.failed_test_count(), 0);
  return result == 0 ? status : result;
}
