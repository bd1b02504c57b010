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

TEST(Writer, IndentsScopesButNoEmptyLines) {
  Writer writer;
  {
    const auto outer = writer.scope("a {\n", "}\n");
    const auto inner = writer.scope("b {\n", "}\n");
    writer.append("c;\n\nd;\n");
  }
  EXPECT_EQ(writer.text(), "a {\n  b {\n    c;\n\n    d;\n  }\n}\n");
}

} // namespace
} // namespace bridgegen::test
