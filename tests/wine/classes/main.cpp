// Wine's classes through the bridges. Prints what this Wine has, class by class.
// Usage: CLASSES EXPECTATIONS

#include "tests/wine/classes/Expectations.h"
#include "tests/wine/support/Counts.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>

using namespace wrt::test;

namespace {

/// One line of the table.
struct Row {
  int tried = 0;
  std::array<int, 4> answers{}; ///< by `Answer`, of the members that answered as expected
  int failed = 0;
};

std::map<std::string, Row> makeTable(const testing::UnitTest &all) {
  std::map<std::string, Row> table;
  for (int suite = 0; suite < all.total_test_suite_count(); ++suite) {
    const testing::TestSuite &tests = *all.GetTestSuite(suite);
    Row &row = table[tests.name()];
    for (int test = 0; test < tests.total_test_count(); ++test) {
      const testing::TestInfo &info = *tests.GetTestInfo(test);
      if (!info.should_run())
        continue;
      ++row.tried;
      const auto answer = expectations().find(std::string(tests.name()) + "." + info.name());
      const bool isAsExpected = info.result()->Passed() && answer != expectations().end();
      ++(isAsExpected ? row.answers[static_cast<size_t>(answer->second)] : row.failed);
    }
  }
  return table;
}

void print(const char *name, const Row &row) {
  std::printf("%-32s %8d %8d %8d %18d %8d\n", name, row.tried, row.answers[0], row.answers[1],
              row.answers[2] + row.answers[3], row.failed);
}

/// Members that are expected and not tested.
int reportUntested(const testing::UnitTest &all) {
  Expectations left = expectations();
  for (int suite = 0; suite < all.total_test_suite_count(); ++suite) {
    const testing::TestSuite &tests = *all.GetTestSuite(suite);
    for (int test = 0; test < tests.total_test_count(); ++test)
      left.erase(std::string(tests.name()) + "." + tests.GetTestInfo(test)->name());
  }
  for (const auto &[name, answer] : left)
    std::printf("expected, but not tested: %s\n", name.c_str());
  return static_cast<int>(left.size());
}

} // namespace

int main(int argc, char **argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc != 2) {
    std::fprintf(stderr, "Usage: classes EXPECTATIONS\n");
    return 2;
  }
  readExpectations(argv[1]);
  const int status = RUN_ALL_TESTS();
  const testing::UnitTest &all = *testing::UnitTest::GetInstance();

  std::printf("\n%-32s %8s %8s %8s %18s %8s\n", "class", "tried", "works", "stub",
              "not implemented", "failed");
  Row sum;
  for (const auto &[name, row] : makeTable(all)) {
    print(name.c_str(), row);
    sum.tried += row.tried;
    sum.failed += row.failed;
    for (size_t i = 0; i < row.answers.size(); ++i)
      sum.answers[i] += row.answers[i];
  }
  print("all", sum);
  std::printf("\n");
  const int untested = reportUntested(all);
  const int result =
      reportCounts(all.successful_test_count(), all.failed_test_count() + untested, 0);
  return result == 0 ? status : result;
}
