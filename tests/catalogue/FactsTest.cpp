// Compares the catalogue with facts.txt, which was not made from the declarations.

#include "tests/catalogue/CatalogueTable.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace wrt;

namespace {

using Words = std::vector<std::string>;

/// The words of the lines that begin with `kind`, without it. There are some.
std::vector<Words> facts(const std::string &kind) {
  std::vector<Words> found;
  for (const std::string &line : catalogue::readLines(WRT_FACTS_FILE)) {
    Words words = catalogue::split(line, ' ');
    if (!words.empty() && words[0] == kind)
      found.emplace_back(words.begin() + 1, words.end());
  }
  EXPECT_FALSE(found.empty());
  return found;
}

const std::vector<catalogue::Method> &methodsOf(const std::string &className) {
  static const std::vector<catalogue::Method> none;
  static const test::CatalogueTable table = test::readCatalogue(WRT_CATALOGUE_FILE);
  const auto found = table.find(className);
  return found == table.end() ? none : found->second;
}

const catalogue::Method *find(const std::string &className, char side,
                              const std::string &selector) {
  const auto &methods = methodsOf(className);
  const auto found = std::ranges::find_if(methods, [&](const catalogue::Method &method) {
    return method.side() == side && method.selector == selector;
  });
  return found == methods.end() ? nullptr : &*found;
}

} // namespace

TEST(CatalogueFacts, EveryLineIsUnderstood) {
  for (const std::string &line : catalogue::readLines(WRT_FACTS_FILE)) {
    if (line.empty() || line[0] == '#')
      continue;
    const Words words = catalogue::split(line, ' ');
    const size_t count = words.size();
    EXPECT_TRUE((words[0] == "method" && (count == 5 || count == 6)) ||
                (words[0] == "exactly" && count >= 3) ||
                (words[0] == "absent" && (count == 2 || count == 3)) ||
                (words[0] == "identifier" && count == 3))
        << line;
  }
}

TEST(CatalogueFacts, Methods) {
  for (const Words &words : facts("method")) {
    SCOPED_TRACE(words[0] + " " + words[1] + words[2]);
    const catalogue::Method *method = find(words[0], words[1][0], words[2]);
    ASSERT_NE(nullptr, method);
    EXPECT_EQ(words[3], method->slot ? std::to_string(*method->slot) : "-");
    if (words.size() > 4) {
      const bool tellsTypes = words[4].find_first_of("\"<") != std::string::npos;
      EXPECT_EQ(words[4], tellsTypes ? method->extendedEncoding : method->encoding);
    }
  }
}

TEST(CatalogueFacts, ExactlyTheseMethods) {
  for (const Words &words : facts("exactly")) {
    EXPECT_FALSE(methodsOf(words[0]).empty()) << "no class " << words[0];
    Words selectors;
    for (const catalogue::Method &method : methodsOf(words[0])) {
      if (method.side() == words[1][0])
        selectors.push_back(method.selector);
    }
    EXPECT_EQ(Words(words.begin() + 2, words.end()), selectors) << words[1] << words[0];
  }
}

TEST(CatalogueFacts, Absent) {
  for (const Words &words : facts("absent")) {
    EXPECT_EQ(words.size() == 1, methodsOf(words[0]).empty()) << words[0];
    for (char side : {'-', '+'})
      EXPECT_TRUE(words.size() == 1 || !find(words[0], side, words[1])) << words[0];
  }
}

TEST(CatalogueFacts, Identifiers) {
  std::map<std::string, std::string> identifiers;
  for (const catalogue::Interface &each :
       catalogue::readIdentifiers(WRT_IDENTIFIERS_FILE).interfaces)
    identifiers[each.name] = each.identifier;
  for (const Words &words : facts("identifier"))
    EXPECT_EQ(words[1], identifiers[words[0]]) << words[0];
}
