#include "tests/generator/Generated.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace bridgegen::test {

Generated generateFrom(const std::vector<std::pair<std::string, std::string>> &sources) {
  std::deque<Source> read;
  for (const auto &[path, text] : sources)
    read.emplace_back(path, text);
  Diagnostics diagnostics;
  Generated generated;
  if (const std::optional<OutputSet> outputs = generate(read, {}, diagnostics))
    generated.files = outputs->files();
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
