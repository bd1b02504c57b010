#ifndef WRT_BENCH_MEASUREMENT_H
#define WRT_BENCH_MEASUREMENT_H

#include "bench/CallgrindDump.h"
#include "bench/Row.h"

#include <map>
#include <string>

namespace wrt::bench {

/// How one variant of a row did.
struct Measurement {
  double nanoseconds = 0;
  double allocations = 0;
  double instructions = 0;
  std::map<Place, double> places; ///< who runs them
};

/// By `variantName`.
using Measurements = std::map<std::string, Measurement>;

/// The variants of a row with their names, as in `Int32 get/bridge`.
struct Variant {
  std::string name;
  void (*operation)();
};
std::vector<Variant> variants(const Row &row);

/// What has to be measured, in order: the variants of all rows, and two that tell what a message
/// costs.
std::vector<Variant> allVariants();

/// What one message costs that does nothing, of what was measured.
Measurement oneMessage(const Measurements &measurements);

/// What a row cannot go below: the platform alone and the messages that have to be sent.
Measurement floorOf(const Row &row, const Measurements &measurements);

/// Runs `operation` `count` times in an autorelease pool of its own.
void repeat(void (*operation)(), int count);

/// Heap allocations per call, once everything is warm.
double allocationsPerCall(void (*operation)());

} // namespace wrt::bench

#endif
