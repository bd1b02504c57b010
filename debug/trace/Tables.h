#ifndef WRT_TRACE_TABLES_H
#define WRT_TRACE_TABLES_H

#include "catalogue/reader/CatalogueTables.h"

#include <map>
#include <string>
#include <vector>

namespace wrt::trace {

/// A method of a bridge class that may cross. Its extended encoding is the plain one if no protocol
/// has it, its interface empty for an activation and a cast.
struct Method : catalogue::Method {
  enum class What {
    Member,   ///< calls a slot
    Accessor, ///< asks for an interface
    Cast      ///< `+cast:`, which crosses nothing and is where many a wrong call begins
  };

  What what;
  /// As in `Windows.Foundation.IUriRuntimeClass.get_Host`, `QueryInterface IClosable`; empty for a
  /// cast.
  std::string member;

  bool hasError() const { return selector.ends_with("rror:"); }
  /// As in `-[WRTUriBridge getHostWithError:]`, for an object of class `receiver`.
  std::string text(const char *receiver) const;
};

/// What the generator's tables say: `catalogue.tsv`, `identifiers.tsv` and `members.tsv`.
struct Tables {
  std::vector<Method> methods;
  /// Interfaces by identifier in lower case, as in `9e365e57-48b2-4160-956f-c7385120bbfc`.
  std::map<std::string, std::string> interfaces;

  /// Reads the tables in `folder`. Throws `std::runtime_error` with a line that names the file when
  /// one cannot be read or is of another form.
  static Tables read(const std::string &folder);
};

} // namespace wrt::trace

#endif
