#ifndef WRT_GENERATOR_GENERATE_H
#define WRT_GENERATOR_GENERATE_H

#include "generator/output/OutputSet.h"
#include "generator/read/Diagnostics.h"

#include <deque>
#include <optional>

namespace bridgegen {

/// Reads, checks and emits all sources in memory. Nothing when something is wrong, which
/// `diagnostics` tells; its places point into `sources`.
std::optional<OutputSet> generate(const std::deque<Source> &sources, Diagnostics &diagnostics);

} // namespace bridgegen

#endif
