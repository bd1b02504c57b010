#include "Catalogue.h"

#include "Text.h"

#include <fstream>
#include <set>
#include <tuple>

namespace wrt::pe {

namespace {

std::vector<std::string> splitAtTabs(const std::string &line) {
  std::vector<std::string> columns(1);
  for (const char c : line) {
    if (c == '\t') {
      columns.emplace_back();
    } else {
      columns.back().push_back(c);
    }
  }
  return columns;
}

std::string nothingIfDash(const std::string &column) { return column == "-" ? "" : column; }

std::string nameMethod(const std::string &className, bool isClassMethod,
                       const std::string &selector) {
  return join(isClassMethod ? '+' : '-', '[', className, ' ', selector, ']');
}

const ObjCMethod *findMethod(const ObjCClass &owner, const CatalogueEntry &entry) {
  for (const ObjCMethod &method : owner.methods) {
    if (method.isClassMethod == entry.isClassMethod && method.selector == entry.selector)
      return &method;
  }
  return nullptr;
}

} // namespace

std::vector<CatalogueEntry> readCatalogue(const std::filesystem::path &file) {
  std::ifstream stream(file);
  if (!stream)
    throw FormatError(join("cannot open ", file.string()));
  std::vector<CatalogueEntry> entries;
  std::string line;
  for (int number = 1; std::getline(stream, line); ++number) {
    const bool isHeading = number == 1 && line.starts_with("class\t");
    if (line.empty() || line[0] == '#' || isHeading)
      continue;
    const auto columns = splitAtTabs(line);
    if (columns.size() != 7 || (columns[1] != "+" && columns[1] != "-"))
      throw FormatError(join(file.string(), ":", number, ": not a method in seven columns"));
    entries.push_back({columns[0], columns[1] == "+", columns[2], columns[3],
                       nothingIfDash(columns[4]), nothingIfDash(columns[5]), columns[6]});
  }
  return entries;
}

std::vector<std::string> compareWithCatalogue(const Metadata &metadata,
                                              const std::vector<CatalogueEntry> &catalogue) {
  std::vector<std::string> differences;
  std::set<std::string> listedClasses;
  std::set<std::tuple<std::string, bool, std::string>> listedMethods;
  for (const CatalogueEntry &entry : catalogue) {
    const std::string name = nameMethod(entry.className, entry.isClassMethod, entry.selector);
    const auto different = [&](const char *what, const std::string &is,
                               const std::string &shouldBe) {
      if (is != shouldBe)
        differences.push_back(join(name, ": ", what, " is ", is, ", should be ", shouldBe));
    };
    listedClasses.insert(entry.className);
    if (!listedMethods.emplace(entry.className, entry.isClassMethod, entry.selector).second)
      differences.push_back(join(name, ": twice in the catalogue"));
    const auto owner = metadata.classes.find(entry.className);
    const ObjCMethod *method =
        owner == metadata.classes.end() ? nullptr : findMethod(owner->second, entry);
    if (!method) {
      differences.push_back(join(name, ": missing"));
      continue;
    }
    different("encoding", method->encoding, entry.encoding);
    if (entry.extendedEncoding.empty())
      continue;
    const ObjCMethod *declared =
        metadata.findProtocolMethod(entry.className, entry.selector, entry.isClassMethod);
    if (!declared) {
      differences.push_back(join(name, ": declared by no protocol of the class"));
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
        differences.push_back(join(nameMethod(className, method.isClassMethod, method.selector),
                                   ": not in the catalogue"));
      }
    }
  }
  return differences;
}

} // namespace wrt::pe
