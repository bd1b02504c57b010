#include "CatalogueComparison.h"

#include <fmt/core.h>

#include <set>
#include <tuple>

namespace wrt::pe {

namespace {

const ObjCMethod *findMethod(const ObjCClass &owner, const catalogue::Method &entry) {
  for (const ObjCMethod &method : owner.methods) {
    if (method.isClassMethod == entry.isClassMethod && method.selector == entry.selector)
      return &method;
  }
  return nullptr;
}

} // namespace

std::vector<std::string> compareWithCatalogue(const Metadata &metadata,
                                              const std::vector<catalogue::Method> &listed) {
  std::vector<std::string> differences;
  std::set<std::string> listedClasses;
  std::set<std::tuple<std::string, bool, std::string>> listedMethods;
  for (const catalogue::Method &entry : listed) {
    const std::string name = entry.name();
    const auto different = [&](const char *what, const std::string &is,
                               const std::string &shouldBe) {
      if (is != shouldBe)
        differences.push_back(fmt::format("{}: {} is {}, should be {}", name, what, is, shouldBe));
    };
    listedClasses.insert(entry.className);
    if (!listedMethods.emplace(entry.className, entry.isClassMethod, entry.selector).second)
      differences.push_back(name + ": twice in the catalogue");
    const auto owner = metadata.classes.find(entry.className);
    const ObjCMethod *method =
        owner == metadata.classes.end() ? nullptr : findMethod(owner->second, entry);
    if (!method) {
      differences.push_back(name + ": missing");
      continue;
    }
    different("encoding", method->encoding, entry.encoding);
    if (entry.extendedEncoding.empty())
      continue;
    const ObjCMethod *declared =
        metadata.findProtocolMethod(entry.className, entry.selector, entry.isClassMethod);
    if (!declared) {
      differences.push_back(name + ": declared by no protocol of the class");
      continue;
    }
    different("the protocol's encoding", declared->encoding, entry.encoding);
    different("extended encoding", declared->extendedEncoding, entry.extendedEncoding);
  }
  for (const std::string &className : listedClasses) {
    const auto owner = metadata.classes.find(className);
    if (owner == metadata.classes.end())
      continue;
    for (const ObjCMethod &method : owner->second.methods) {
      if (!listedMethods.count({className, method.isClassMethod, method.selector})) {
        differences.push_back(fmt::format("{}[{} {}]: not in the catalogue",
                                          method.isClassMethod ? '+' : '-', className,
                                          method.selector));
      }
    }
  }
  return differences;
}

} // namespace wrt::pe
