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
  std::string interface;        ///< without `WRT`; `-` for `+activateInstance`
  std::optional<int> slot;      ///< in the interface's table; none for accessors and activation

  bool isActivation() const { return interface == "-"; }
  bool isMember() const { return slot.has_value(); }
  bool isAccessor() const { return !isMember() && !isActivation(); }
};

/// The methods of every generated class, by class name, in the order of the class.
using CatalogueTable = std::map<std::string, std::vector<CatalogueMethod>>;

/// The table that the build made. Read once; ends the program if it cannot be read.
const CatalogueTable &catalogueTable();

/// Whether a class stands for the test interfaces, which are no part of the catalogue.
bool isTestClass(const std::string &className);

/// The lines of a file. Ends the program if it cannot be read.
std::vector<std::string> readLines(const char *path);
/// The pieces of `text` between the separators.
std::vector<std::string> split(const std::string &text, char separator);

} // namespace wrt::test

#endif
