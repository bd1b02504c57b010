#ifndef WRT_BENCH_FAMILY_ROWS_H
#define WRT_BENCH_FAMILY_ROWS_H

#include "bench/Row.h"

namespace wrt::bench {

/// The rows of the generic families: collections, boxed values, asynchronous operations.
std::vector<Row> familyRows();

} // namespace wrt::bench

#endif
