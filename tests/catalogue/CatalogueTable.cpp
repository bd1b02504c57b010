#include "tests/catalogue/CatalogueTable.h"

namespace wrt::test {

CatalogueTable readCatalogue(const std::string &file) {
  CatalogueTable byClass;
  for (catalogue::Method &method : catalogue::readMethods(file))
    byClass[method.className].push_back(std::move(method));
  return byClass;
}

} // namespace wrt::test
