#include "tests/generator/Generated.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

namespace bridgegen::test {

namespace {

/// What the reference is told of the embedded platform.
constexpr const char *kPlatform = "IDoor\nIDoor\tget_Width\n";

Generated generateAll(const std::deque<Source> &sources, const Extras &extras) {
  Diagnostics diagnostics;
  Generated generated;
  if (const std::optional<OutputSet> outputs = generate(sources, extras, diagnostics))
    generated.files = outputs->files();
  const Source platform("platform.tsv", kPlatform);
  Extras forReference = extras;
  forReference.isReference = true;
  forReference.platform = &platform;
  if (!diagnostics.hasErrors())
    generated.pages = generate(sources, forReference, diagnostics)->files();
  std::ostringstream errors;
  diagnostics.print(errors);
  generated.errors = errors.str();
  return generated;
}

} // namespace

Generated generateFrom(const std::vector<std::pair<std::string, std::string>> &sources) {
  std::deque<Source> read;
  for (const auto &[path, text] : sources)
    read.emplace_back(path, text);
  return generateAll(read, {});
}

Generated generateAddOn(const std::string &known, const std::string &declarations) {
  std::deque<Source> read;
  read.emplace_back("sample.idl", declarations);
  read.emplace_back("known.idl", known, Origin::Known);
  Extras extras;
  extras.target = {"Bridges", "Contoso"};
  return generateAll(read, extras);
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
