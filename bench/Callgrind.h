#ifndef WRT_BENCH_CALLGRIND_H
#define WRT_BENCH_CALLGRIND_H

#include "bench/Measurement.h"

#include <string>

namespace wrt::bench {

/// Runs in the program that callgrind watches: every variant a fixed number of times, each dumped
/// under its name.
void runUnderCallgrind();

/// Starts `program` again under callgrind and adds the instructions per call to `measurements`.
/// What went wrong, or empty.
std::string countInstructions(const std::string &program, Measurements &measurements);

} // namespace wrt::bench

#endif
