// The cells of the member matrix that do not need the embedded platform, with the test component in
// a DLL of its own behind combase.
// Usage: MATRIX DLL EXCLUSIONS

#include "tests/wine/matrix/ComponentProgram.h"
#include "tests/wine/support/Counts.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

namespace {

/// A cell that is not run here, and why.
struct Exclusion {
  std::string cell;
  std::string reason;
};

std::vector<Exclusion> readExclusions(const char *path) {
  std::ifstream file(path);
  if (!file) {
    std::fprintf(stderr, "matrix: cannot read %s\n", path);
    std::exit(2);
  }
  std::vector<Exclusion> exclusions;
  for (std::string line; std::getline(file, line);) {
    const size_t mark = line.find(" # ");
    if (mark != std::string::npos && mark > 0)
      exclusions.push_back({line.substr(0, line.find(' ')), line.substr(mark + 3)});
  }
  return exclusions;
}

/// A path on Wine's drive that is the whole Unix file system. ASCII.
std::u16string windowsPath(const std::string &path) {
  std::u16string result = u"Z:";
  for (char character : path)
    result += character == '/' ? u'\\' : static_cast<char16_t>(character);
  return result;
}

} // namespace

int main(int argc, char **argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc != 3) {
    std::fprintf(stderr, "Usage: matrix DLL EXCLUSIONS\n");
    return 2;
  }
  if (!wrt::test::connectComponent(windowsPath(argv[1]).c_str())) {
    std::fprintf(stderr, "matrix: cannot load %s\n", argv[1]);
    return 2;
  }
  if (!wrt::test::isComponentForeign()) {
    std::fprintf(stderr, "matrix: TestClass is not what %s implements\n", argv[1]);
    return 2;
  }
  std::string filter = "*-";
  const auto exclusions = readExclusions(argv[2]);
  for (const Exclusion &exclusion : exclusions) {
    std::printf("skipped: %s (%s)\n", exclusion.cell.c_str(), exclusion.reason.c_str());
    filter += exclusion.cell + ":";
  }
  testing::GTEST_FLAG(filter) = filter;
  const int status = RUN_ALL_TESTS();
  const testing::UnitTest &all = *testing::UnitTest::GetInstance();
  const int filtered = all.total_test_count() - all.test_to_run_count();
  if (filtered != static_cast<int>(exclusions.size()))
    std::printf("matrix: %zu cells are excluded, %d of them exist\n", exclusions.size(), filtered);
  const bool fits = filtered == static_cast<int>(exclusions.size());
  const int result = wrt::test::reportCounts(all.successful_test_count(),
                                             all.failed_test_count() + (fits ? 0 : 1), filtered);
  return result == 0 ? status : result;
}
