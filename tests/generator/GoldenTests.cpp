#include "tests/generator/Generated.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>

/// Each file in goldens/ holds declarations (`=== declarations`) and, for some outputs (`===
/// path`), the lines that they must have, in order. A line `...` stands for any lines between;
/// there may be any before the first and after the last. Empty lines do not count.
namespace bridgegen::test {
namespace {

struct Section {
  std::string title;
  std::vector<std::string> lines;
};

std::vector<std::string> nonEmptyLines(const std::string &text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (line.find_first_not_of(' ') != line.npos)
      lines.push_back(line);
  }
  return lines;
}

std::vector<Section> sections(const std::string &text) {
  std::vector<Section> read;
  for (const std::string &line : nonEmptyLines(text)) {
    if (line.starts_with("=== "))
      read.push_back({line.substr(4), {}});
    else if (!read.empty()) // what stands before the first section says what it is about
      read.back().lines.push_back(line);
  }
  return read;
}

/// Checks that `actual` has the blocks of `expected` one after the other. On failure the first
/// block that is missing is shown.
void expectInOrder(const std::vector<std::string> &expected, const std::string &actual) {
  const std::vector<std::string> lines = nonEmptyLines(actual);
  auto from = lines.begin();
  for (auto block = expected.begin(); block != expected.end();) {
    const auto end = std::find(block, expected.end(), "...");
    const auto found = std::search(from, lines.end(), block, end);
    std::string wanted;
    for (auto line = block; line != end; ++line)
      wanted += *line + "\n";
    ASSERT_TRUE(found != lines.end() || block == end) << "not found:\n"
                                                      << wanted << "in:\n"
                                                      << actual;
    from = found + (end - block);
    block = end == expected.end() ? end : end + 1;
  }
}

class Golden : public testing::TestWithParam<std::string> {};

TEST_P(Golden, HasTheseLines) {
  const std::vector<Section> parts = sections(readFile(WRT_GOLDENS "/" + GetParam() + ".golden"));
  ASSERT_GE(parts.size(), 2U);
  ASSERT_EQ(parts[0].title, "declarations");
  std::string declarations;
  for (const std::string &line : parts[0].lines)
    declarations += line + "\n";
  const Generated generated = generateFrom(declarations);
  ASSERT_EQ(generated.errors, "");
  for (size_t i = 1; i < parts.size(); ++i) {
    SCOPED_TRACE(parts[i].title);
    ASSERT_TRUE(generated.files.contains(parts[i].title));
    ASSERT_FALSE(parts[i].lines.empty());
    expectInOrder(parts[i].lines, generated.files.at(parts[i].title));
  }
}

std::vector<std::string> goldens() {
  std::vector<std::string> names;
  for (const auto &entry : std::filesystem::directory_iterator(WRT_GOLDENS))
    names.push_back(entry.path().stem());
  std::sort(names.begin(), names.end());
  return names;
}

INSTANTIATE_TEST_SUITE_P(Patterns, Golden, testing::ValuesIn(goldens()),
                         [](const auto &info) { return info.param; });

} // namespace
} // namespace bridgegen::test
