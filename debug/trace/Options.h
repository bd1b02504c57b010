#ifndef WRT_TRACE_OPTIONS_H
#define WRT_TRACE_OPTIONS_H

#include "debug/trace/Tables.h"

#include <WRTObjcBridge/WRTTypes.h>

#include <cstdint>
#include <string>
#include <vector>

namespace wrt::trace {

/// How a crossing ended.
struct Ending {
  HRESULT status = 0;
  bool isCalled = true;  ///< the interface function was; false when there was no interface for it
  bool isRaised = false; ///< an exception passed through
  bool isEmpty = false;  ///< an activation, which tells no status, gave nothing

  bool isFailure() const { return status < 0 || !isCalled || isRaised || isEmpty; }
};

/// What the environment asks of the trace.
struct Options {
  std::vector<std::string> classes; ///< patterns as of file names; none for all classes
  std::vector<std::string> endings; ///< `ok`, `failed`, `raised` or a status; none for all
  int64_t shortest = 0;             ///< nanoseconds
  std::string file;                 ///< empty for standard error
  std::string tables;               ///< their folder; empty for the one beside the library
  bool listsAlive = false;

  /// From the variables `WRT_TRACE_...`. Throws `std::runtime_error` with a line for one that does
  /// not exist and for a value that means nothing.
  static Options read(char **environment);
  /// Throws in the same way for a pattern that no class of the tables fits.
  void check(const Tables &tables) const;

  bool wantsClass(const char *name) const;
  bool wantsEnding(const Ending &ending) const;
};

} // namespace wrt::trace

#endif
