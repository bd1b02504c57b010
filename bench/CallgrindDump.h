#ifndef WRT_BENCH_CALLGRIND_DUMP_H
#define WRT_BENCH_CALLGRIND_DUMP_H

#include <filesystem>
#include <map>
#include <string>

namespace wrt::bench {

/// Who runs instructions: a library's file name and a function in it. Functions without a symbol go
/// by their address.
struct Place {
  std::string library;
  std::string function;

  auto operator<=>(const Place &) const = default;
};

/// What one dump of callgrind says: the instructions of each function itself, without what it
/// calls.
struct CallgrindDump {
  std::string name; ///< under which it was made; empty when it was not asked for
  std::map<Place, double> instructions;
};

/// Reads a dump that was written without compressed names (callgrind format 1).
CallgrindDump readDump(const std::filesystem::path &path);

} // namespace wrt::bench

#endif
