#ifndef WRT_BENCH_REPORT_H
#define WRT_BENCH_REPORT_H

#include "bench/Measurement.h"

#include <string>

namespace wrt::bench {

/// The table as Markdown, between two marks that tell a file's own text from it.
std::string table(const Measurements &measurements);

/// Puts the table into the file, in place of the one that stands there. What went wrong, or empty.
std::string writeTable(const std::string &path, const std::string &table);

} // namespace wrt::bench

#endif
