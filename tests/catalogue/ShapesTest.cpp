// What holds for the catalogue as a whole: its totals, and the shapes that all its classes have.

#include "tests/catalogue/CatalogueTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <regex>
#include <set>

using namespace wrt::test;

namespace {

/// Calls `visit` for every method of every catalogue class.
template <class Visit>
void forEachMethod(Visit visit) {
  for (const auto &[name, methods] : catalogueTable()) {
    if (!isTestClass(name))
      std::ranges::for_each(methods, visit);
  }
}

/// A line of the surface digest, as far as it is read here.
struct ClassLine {
  std::string name;
  std::string kind;
  std::string superclass;
  size_t methods = 0;
};

std::vector<ClassLine> catalogueClasses() {
  std::vector<ClassLine> classes;
  for (const std::string &line : readLines(WRT_DIGEST_FILE)) {
    const std::vector<std::string> words = split(line, ' ');
    if (!isTestClass(words.at(0)))
      classes.push_back({words[0], words.at(1), words.at(2), std::stoul(words.at(3))});
  }
  return classes;
}

bool isInstantiation(const std::string &className) { return className.ends_with("_Bridge"); }

} // namespace

TEST(CatalogueTotals, Classes) {
  std::map<std::string, int> counts;
  for (const ClassLine &line : catalogueClasses())
    ++counts[(isInstantiation(line.name) ? "generic " : "") + line.kind];
  // Two interfaces complete the asynchronous operations and the observable vectors: IAsyncInfo is
  // full, IVectorChangedEventArgs a proxy.
  const std::map<std::string, int> expected = {{"class", 205},
                                               {"interface", 386 + 1},
                                               {"proxy-class", 194},
                                               {"proxy-interface", 268 + 1},
                                               {"generic interface", 90},
                                               {"generic proxy-interface", 134}};
  EXPECT_EQ(expected, counts);
}

TEST(CatalogueTotals, Methods) {
  std::map<std::string, int> counts;
  forEachMethod([&](const CatalogueMethod &method) {
    const std::string side = method.side == '+' ? "class " : "instance ";
    ++counts[method.isActivation() ? "activation"
                                   : side + (method.isMember() ? "member" : "accessor")];
  });
  const std::map<std::string, int> expected = {{"instance member", 5622},
                                               {"instance accessor", 1652},
                                               {"class member", 695},
                                               {"class accessor", 174},
                                               {"activation", 205}};
  EXPECT_EQ(expected, counts);
}

TEST(CatalogueTotals, InterfaceMembers) {
  std::set<std::pair<std::string, int>> members;
  std::set<std::string> withTable;
  forEachMethod([&](const CatalogueMethod &method) {
    if (method.isMember())
      members.emplace(method.interface, method.slot.value_or(0));
    if (method.encoding.find("Vtbl}}12@0:4") != std::string::npos)
      withTable.insert(method.interface);
  });
  EXPECT_EQ(3463u, members.size());
  EXPECT_EQ(651u, withTable.size());
}

TEST(CatalogueShapes, SuperclassFollowsFromTheKind) {
  const std::map<std::string, std::string> superclasses = {
      {"class", "WRTInspectableBridge"},
      {"proxy-class", "WRTClassProxy"},
      {"interface", "WRTInterfaceProxy"},
      {"proxy-interface", "WRTInterfaceProxy"}};
  for (const ClassLine &line : catalogueClasses()) {
    EXPECT_EQ(superclasses.at(line.kind), line.superclass) << line.name;
    const auto &methods = catalogueTable().at(line.name);
    EXPECT_EQ(line.methods, methods.size()) << line.name;
    const bool hasClassMethods =
        std::ranges::any_of(methods, [](const auto &method) { return method.side == '+'; });
    EXPECT_EQ(line.kind == "class", hasClassMethods) << line.name;
    EXPECT_EQ(line.kind == "class", std::ranges::any_of(methods, &CatalogueMethod::isActivation))
        << line.name;
    if (line.kind == "proxy-interface")
      EXPECT_EQ(1u, methods.size()) << line.name;
  }
}

TEST(CatalogueShapes, ActivationComesFirstAndAccessorsAfterTheirMembers) {
  for (const auto &[name, methods] : catalogueTable()) {
    for (const char side : {'-', '+'}) {
      std::vector<CatalogueMethod> ofSide;
      std::ranges::copy_if(methods, std::back_inserter(ofSide),
                           [&](const CatalogueMethod &method) { return method.side == side; });
      for (size_t i = 0; i < ofSide.size(); ++i) {
        const CatalogueMethod &method = ofSide[i];
        if (method.isActivation())
          EXPECT_EQ(0u, i) << name;
        if (!method.isMember())
          continue;
        ASSERT_LT(i + 1, ofSide.size()) << name;
        EXPECT_EQ(method.interface, ofSide[i + 1].interface) << name << " " << method.selector;
        if (ofSide[i + 1].isMember())
          EXPECT_LT(method.slot, ofSide[i + 1].slot) << name << " " << method.selector;
      }
    }
  }
}

TEST(CatalogueShapes, AnInterfaceLooksTheSameInEveryClass) {
  std::map<std::pair<std::string, std::string>, CatalogueMethod> first;
  forEachMethod([&](const CatalogueMethod &method) {
    if (method.isActivation())
      return;
    const auto [known, isNew] = first.try_emplace({method.interface, method.selector}, method);
    EXPECT_EQ(known->second.slot, method.slot) << method.className << " " << method.selector;
    EXPECT_EQ(known->second.encoding, method.encoding)
        << method.className << " " << method.selector;
    EXPECT_EQ(known->second.protocolEncoding, method.protocolEncoding)
        << method.className << " " << method.selector;
  });
}

TEST(CatalogueShapes, ProtocolEncodingsAddNamesAndNameWhatExists) {
  const std::regex names("\"[^\"]*\"");
  const std::regex blocks("@\\?<[^>]*>");
  std::set<std::string> known = {"WRTIInspectableBridge", "NSString", "NSArray", "NSMutableArray"};
  for (const auto &[name, methods] : catalogueTable())
    known.insert(name);
  forEachMethod([&](const CatalogueMethod &method) {
    if (method.isActivation())
      return;
    const std::string &encoding = method.protocolEncoding;
    // Protocol names go first: the angle brackets around them would end a block's signature.
    const std::string unnamed = std::regex_replace(encoding, names, "");
    EXPECT_EQ(method.encoding, std::regex_replace(unnamed, blocks, "@?")) << method.selector;
    for (std::sregex_iterator i(encoding.begin(), encoding.end(), names), end; i != end; ++i) {
      std::string name = i->str();
      std::erase_if(name, [](char c) { return c == '"' || c == '<' || c == '>'; });
      EXPECT_TRUE(known.contains(name))
          << method.className << " " << method.selector << " " << name;
    }
  });
}
