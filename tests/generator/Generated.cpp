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

std::vector<CatalogueLine> catalogueOf(const Generated &generated, const std::string &bridge) {
  EXPECT_EQ(generated.errors, "");
  std::vector<CatalogueLine> lines;
  const auto found = generated.files.find("catalogue.tsv");
  std::istringstream text(found == generated.files.end() ? "" : found->second);
  for (std::string line; std::getline(text, line);) {
    std::istringstream cells(line);
    CatalogueLine read;
    for (std::string *cell : {&read.bridge, &read.side, &read.selector, &read.encoding,
                              &read.protocolEncoding, &read.interface, &read.slot})
      std::getline(cells, *cell, '\t');
    if (read.bridge == bridge)
      lines.push_back(read);
  }
  return lines;
}

CatalogueLine methodOf(const Generated &generated, const std::string &bridge,
                       const std::string &selector) {
  for (const CatalogueLine &line : catalogueOf(generated, bridge)) {
    if (line.selector == selector)
      return line;
  }
  ADD_FAILURE() << bridge << " has no method " << selector;
  return {};
}

std::string readFile(const std::string &path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

} // namespace bridgegen::test
