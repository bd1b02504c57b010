#include "generator/output/Writer.h"

#include <gtest/gtest.h>
#include <vector>

namespace bridgegen::test {
namespace {

TEST(Writer, FillsPlaceholdersWithTextsNumbersAndWriters) {
  Writer writer;
  const std::vector<int> numbers{1, 2, 3};
  writer.write(
      "%(%) = %;", std::string("f"),
      separated(numbers, ", ", [](Writer &inner, int number) { inner.write("x%", number); }), -7);
  EXPECT_EQ(writer.text(), "f(x1, x2, x3) = -7;");
}

TEST(Writer, LeavesAPercentSignInAnArgumentAlone) {
  Writer writer;
  writer.write("%%", "100%", "!");
  EXPECT_EQ(writer.text(), "100%!");
}

} // namespace
} // namespace bridgegen::test
