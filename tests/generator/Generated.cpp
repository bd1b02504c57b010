#include "tests/generator/Generated.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace bridgegen::test {

namespace {

/// What the reference is told of the embedded platform.
constexpr const char *kPlatform = "IDoor\nIDoor\tget_Width\n";

} // namespace

Generated generateFrom(const std::vector<std::pair<std::string, std::string>> &sources) {
  std::deque<Source> read;
  for (const auto &[path, text] : sources)
    read.emplace_back(path, text);
  Diagnostics diagnostics;
  Generated generated;
  if (const std::optional<OutputSet> outputs = generate(read, {}, diagnostics))
    generated.files = outputs->files();
  const Source platform("platform.tsv", kPlatform);
  const Extras forReference{nullptr, "", true, &platform};
  if (!diagnostics.hasErrors())
    generated.pages = generate(read, forReference, diagnostics)->files();
  std::ostringstream errors;
  diagnostics.print(errors);
  generated.errors = errors.str();
  return generated;
}

Generated generateFrom(const std::string &declarations) {
  return generateFrom({{"sample.idl", declarations}});
}

std::string readFile(const std::string &path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

} // namespace bridgegen::test
