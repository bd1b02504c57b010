#ifndef WRT_GENERATOR_GENERATE_H
#define WRT_GENERATOR_GENERATE_H

#include "generator/output/OutputSet.h"
#include "generator/read/Diagnostics.h"

#include <deque>
#include <optional>

namespace bridgegen {

/// Reads, checks and emits all sources in memory; `handWritten` lists classes that the tables name
/// besides, and may be null. Nothing when something is wrong, which `diagnostics` tells; its places
/// point into the sources.
std::optional<OutputSet> generate(const std::deque<Source> &sources, const Source *handWritten,
                                  Diagnostics &diagnostics);

} // namespace bridgegen

#endif
