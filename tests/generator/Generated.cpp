#include "tests/generator/Generated.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>

namespace bridgegen::test {

Generated generateFrom(const std::vector<std::pair<std::string, std::string>> &sources,
                       const std::string &known) {
  std::deque<Source> read;
  for (const auto &[path, text] : sources)
    read.emplace_back(path, text);
  Extras extras;
  if (!known.empty()) {
    read.emplace_back("known.idl", known, Origin::Known);
    extras.target = {"Bridges", "Contoso"};
  }
  Diagnostics diagnostics;
  Generated generated;
  if (const std::optional<OutputSet> outputs = generate(read, extras, diagnostics))
    generated.files = outputs->files();
  // What the reference is told of the embedded platform.
  const Source platform("platform.tsv", "IDoor\nIDoor\tget_Width\n");
  extras.isReference = true;
  extras.platform = &platform;
  if (!diagnostics.hasErrors())
    generated.pages = generate(read, extras, diagnostics)->files();
  std::ostringstream errors;
  diagnostics.print(errors);
  generated.errors = errors.str();
  return generated;
}

std::string readFile(const std::string &path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace bridgegen::test
