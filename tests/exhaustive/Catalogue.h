#ifndef WRT_TESTS_EXHAUSTIVE_CATALOGUE_H
#define WRT_TESTS_EXHAUSTIVE_CATALOGUE_H

#include <WRTObjcBridge/WRTTypes.h>

#include <map>
#include <string>
#include <vector>

namespace wrt::test {

/// A line of the catalogue's table.
struct CatalogueMethod {
  std::string type;
  bool isClassMethod;
  std::string selector;
  std::string encoding;
  std::string protocolEncoding;
  /// The interface's bridge name without `WRT` and `Bridge`.
  std::string interface;
  /// -1 for accessors and `activateInstance`.
  int slot;
};

/// The table's methods, but for those of the hand-written core.
std::vector<CatalogueMethod> readCatalogue(const char *path);

/// The identifiers that the declarations themselves give to interfaces, read without bridgegen.
std::map<std::string, GUID> readDeclaredIids(const std::vector<std::string> &paths);

} // namespace wrt::test

#endif
