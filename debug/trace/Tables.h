#ifndef WRT_TRACE_TABLES_H
#define WRT_TRACE_TABLES_H

#include "debug/Encoding.h"

#include <map>
#include <string>
#include <vector>

namespace wrt::trace {

/// A method of a bridge class that may cross: a line of `catalogue.tsv` with WinRT's name for it.
struct Method {
  enum class What {
    Member,   ///< calls a slot
    Accessor, ///< asks for an interface
    Cast      ///< `+cast:`, which crosses nothing and is where many a wrong call begins
  };

  What what;
  std::string className;
  bool isClassMethod;
  std::string selector;
  std::string encoding; ///< with offsets of 32-bit targets
  std::string extendedEncoding;
  std::string interface; ///< as in `IUriRuntimeClass`; empty for an activation and a cast
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
