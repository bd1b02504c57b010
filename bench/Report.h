#ifndef WRT_BENCH_REPORT_H
#define WRT_BENCH_REPORT_H

#include "bench/Measurement.h"

#include <string>

namespace wrt::bench {

/// What calls cost, as a table in Markdown.
std::string callTable(const Measurements &measurements);

/// Whose code runs the instructions of a call through the bridge, as a table in Markdown.
std::string placeTable(const Measurements &measurements);

/// The functions that run one variant's instructions, the busiest first, a line each.
std::string functionList(const std::string &name, const Measurement &measurement);

/// Puts the table into the file, in place of what stands between `mark`'s two comments. What went
/// wrong, or empty.
std::string writeTable(const std::string &path, const std::string &mark, const std::string &table);

} // namespace wrt::bench

#endif
