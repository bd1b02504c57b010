#ifndef WRT_BENCH_OPTIONS_H
#define WRT_BENCH_OPTIONS_H

#include <optional>
#include <string>
#include <vector>

namespace wrt::bench {

/// What a run is asked to do.
struct Options {
  bool count = false;          ///< messages and look-ups of classes, and nothing else
  bool underCallgrind = false; ///< runs what callgrind is to count, and nothing else
  bool usesCallgrind = true;
  std::string document;            ///< gets the tables; empty to print them
  std::string picture;             ///< a file; empty for none
  std::string functionsOf;         ///< a variant; empty for the tables
  std::vector<std::string> others; ///< for Google Benchmark
};

/// Reads the arguments. Nothing when there is nothing to do any more: help was printed, or what is
/// wrong to standard error, and `status` is the program's.
std::optional<Options> readOptions(int argc, char **argv, int &status);

} // namespace wrt::bench

#endif
