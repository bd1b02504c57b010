#include "tests/generator/Generated.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

/// Each file in goldens/ holds declarations (`=== declarations`; behind `=== known`, what an add-on
/// to those would have) and, for some outputs (`=== path`), the lines that they must have, in
/// order. A line `...` stands for any lines between; there may be any before the first and after
/// the last. Empty lines do not count.
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

/// The first has no title: it says what the file is about.
std::vector<Section> sections(const std::string &text) {
  std::vector<Section> read(1);
  for (const std::string &line : nonEmptyLines(text)) {
    if (line.starts_with("=== "))
      read.push_back({line.substr(4), {}});
    else
      read.back().lines.push_back(line);
  }
  return read;
}

std::string joined(const std::vector<std::string> &lines) {
  std::string text;
  for (const std::string &line : lines)
    text += line + "\n";
  return text;
}

const bool kIsUpdate = std::getenv("WRT_UPDATE_GOLDENS") != nullptr;

/// Checks that `actual` has the blocks of `expected` one after the other; the first that is missing
/// is shown. An update gives such a block the lines that there are now: from its first line on, or
/// if that is gone, from the one that begins most like it.
void compare(std::vector<std::string> &expected, const std::string &actual) {
  const std::vector<std::string> lines = nonEmptyLines(actual);
  auto from = lines.begin();
  for (auto block = expected.begin(); block != expected.end();) {
    const auto end = std::find(block, expected.end(), "...");
    auto found = std::search(from, lines.end(), block, end);
    if (kIsUpdate && found == lines.end()) {
      const auto likeness = [&](const std::string &line) {
        return std::ranges::mismatch(line, *block).in1 - line.begin();
      };
      found = std::find(from, lines.end(), *block);
      if (found == lines.end())
        found = std::ranges::max_element(from, lines.end(), {}, likeness);
      std::copy_n(found, std::min(end - block, lines.end() - found), block);
    }
    ASSERT_LE(end - block, lines.end() - found) << "not found:\n"
                                                << joined({block, end}) << "in:\n"
                                                << actual;
    from = found + (end - block);
    block = end == expected.end() ? end : end + 1;
  }
}

class Golden : public testing::TestWithParam<std::string> {};

TEST_P(Golden, HasTheseLines) {
  const std::string path = WRT_GOLDENS "/" + GetParam() + ".golden";
  std::vector<Section> parts = sections(readFile(path));
  ASSERT_GE(parts.size(), 3U);
  const size_t own = parts[1].title == "known" ? 2 : 1;
  ASSERT_EQ(parts[own].title, "declarations");
  Generated generated = generateFrom({{"sample.idl", joined(parts[own].lines)}},
                                     own == 1 ? "" : joined(parts[1].lines));
  ASSERT_EQ(generated.errors, "");
  generated.files.merge(generated.pages);
  std::string text;
  for (size_t i = 0; i < parts.size(); ++i) {
    SCOPED_TRACE(
        path + ", " + parts[i].title +
        "\nIf it is meant to change: cmake --build --preset linux --target update_goldens");
    ASSERT_FALSE(parts[i].lines.empty());
    if (i > own) {
      ASSERT_TRUE(generated.files.contains(parts[i].title));
      compare(parts[i].lines, generated.files.at(parts[i].title));
    }
    text += (i == 0 ? "" : "\n=== " + parts[i].title + "\n") + joined(parts[i].lines);
  }
  if (kIsUpdate)
    std::ofstream(path) << text;
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
