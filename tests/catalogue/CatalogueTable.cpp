#include "tests/catalogue/CatalogueTable.h"

namespace wrt::test {

const CatalogueTable &catalogueTable() {
  static const CatalogueTable table = [] {
    CatalogueTable byClass;
    for (catalogue::Method &method : catalogue::readMethods(WRT_CATALOGUE_FILE))
      byClass[method.className].push_back(std::move(method));
    return byClass;
  }();
  return table;
}

const std::vector<catalogue::Class> &surfaceClasses() {
  static const std::vector<catalogue::Class> classes = catalogue::readClasses(WRT_DIGEST_FILE);
  return classes;
}

} // namespace wrt::test
