// Runs the cells and then compares those that ran with the matrix: a listed cell that does not
// exist and a cell that is not listed both fail.

#include "tests/support/Cell.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <set>

namespace {

std::set<std::string> listedCells(const char *path) {
  std::ifstream file(path);
  if (!file) {
    std::fprintf(stderr, "matrix: cannot read %s\n", path);
    std::exit(2);
  }
  std::set<std::string> cells;
  for (std::string line; std::getline(file, line);) {
    line.erase(std::min(line.find('#'), line.size()));
    line.erase(line.find_last_not_of(" \t") + 1);
    if (!line.empty())
      cells.insert(line);
  }
  return cells;
}

/// Prints each name of `names` that `others` lacks; how many there are.
size_t reportMissing(const std::set<std::string> &names, const std::set<std::string> &others,
                     const char *what) {
  std::vector<std::string> missing;
  std::ranges::set_difference(names, others, std::back_inserter(missing));
  for (const std::string &name : missing)
    std::printf("matrix: %s: %s\n", what, name.c_str());
  return missing.size();
}

} // namespace

int main(int argc, char **argv) {
  testing::InitGoogleTest(&argc, argv);
  testing::GTEST_FLAG(death_test_style) = "threadsafe";
  const int failed = RUN_ALL_TESTS();
  if (testing::GTEST_FLAG(filter) != "*")
    return failed;
  const auto listed = listedCells(WRT_MATRIX_FILE);
  // Without a filter all of them.
  std::set<std::string> ran;
  for (const auto &[name, body] : wrt::test::allCells())
    ran.insert(name);
  const size_t missing = reportMissing(listed, ran, "listed, but not run") +
                         reportMissing(ran, listed, "run, but not listed");
  std::printf("matrix: %zu cells run of %zu listed\n", ran.size(), listed.size());
  return failed || missing ? 1 : 0;
}
