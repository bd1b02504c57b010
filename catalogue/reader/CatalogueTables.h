/// The tables that bridgegen makes of the declarations, as tests and tools read them.
#ifndef WRT_CATALOGUE_TABLES_H
#define WRT_CATALOGUE_TABLES_H

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Each function reads one table. It throws `std::runtime_error` with the file and, if a line has
/// another form, its number.
namespace wrt::catalogue {

/// A method of a bridge class: a line of `catalogue.tsv`.
struct Method {
  std::string className;
  bool isClassMethod;
  std::string selector;
  std::string encoding; ///< on the 32-bit product
  /// Of the protocol that declares the method, with classes, protocols and the signatures of
  /// blocks; empty if none does.
  std::string extendedEncoding;
  std::string interface;   ///< as in `IUriRuntimeClass`; may be empty
  std::optional<int> slot; ///< in the interface's table; none if the method calls none

  char side() const { return isClassMethod ? '+' : '-'; }
  /// As in `-[WRTUriBridge getHostWithError:]`.
  std::string name() const { return side() + ("[" + className) + ' ' + selector + ']'; }
};
std::vector<Method> readMethods(const std::string &file);

/// A line of `identifiers.tsv`.
struct Interface {
  std::string name;       ///< as methods have it
  std::string bridge;     ///< the class
  std::string identifier; ///< as in `9e365e57-48b2-4160-956f-c7385120bbfc`
};
/// Another one.
struct RuntimeClass {
  std::string bridge;           ///< the class
  std::string name;             ///< WinRT's in full
  std::string defaultInterface; ///< empty if it has none
};
struct Identifiers {
  std::vector<Interface> interfaces;
  std::vector<RuntimeClass> classes;
};
Identifiers readIdentifiers(const std::string &file);

/// The names of members, as in `Windows.Foundation.IUriRuntimeClass.get_Host`, by interface and
/// slot: `members.tsv`.
using Members = std::map<std::pair<std::string, int>, std::string>;
Members readMembers(const std::string &file);

/// A class of the library: a line of `surface.digest`, as far as anybody reads it.
struct Class {
  std::string name;
  std::string kind;
  std::string superclass;

  bool isHandWritten() const { return kind == "core"; }
};
std::vector<Class> readClasses(const std::string &file);

/// The lines of any file.
std::vector<std::string> readLines(const std::string &file);
/// The pieces of `text` between the separators.
std::vector<std::string> split(const std::string &text, char separator);

} // namespace wrt::catalogue

#endif
