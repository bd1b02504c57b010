#ifndef WRT_TESTS_CATALOGUE_TABLE_H
#define WRT_TESTS_CATALOGUE_TABLE_H

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace wrt::test {

/// One method of a bridge class, a line of `catalogue.tsv`. Encodings are those of the 32-bit
/// product.
struct CatalogueMethod {
  std::string className;
  char side = '-'; ///< `-` for an instance method, `+` for a class method
  std::string selector;
  std::string encoding;
  std::string protocolEncoding; ///< with declared classes, protocols and block signatures
  std::string interface;        ///< without `WRT`; `-` for `+activateInstance` and for core classes
  std::optional<int> slot;      ///< in the interface's table; none for accessors and activation

  bool isClassMethod() const { return side == '+'; }
};

/// The methods of every class that has any, by class name, in the order of the class.
using CatalogueTable = std::map<std::string, std::vector<CatalogueMethod>>;

/// The table that the build made. Read once; ends the program if it cannot be read.
const CatalogueTable &catalogueTable();

/// A line of `surface.digest`, as far as the tests read it.
struct SurfaceClass {
  std::string name;
  std::string kind; ///< `core` for the hand-written ones
  std::string superclass;
  size_t methods = 0;
};

/// Every class of the library. Read once; ends the program if it cannot be read.
const std::vector<SurfaceClass> &surfaceClasses();

/// The lines of a file. Ends the program if it cannot be read.
std::vector<std::string> readLines(const char *path);
/// The pieces of `text` between the separators.
std::vector<std::string> split(const std::string &text, char separator);

} // namespace wrt::test

#endif
