#ifndef WRT_GENERATOR_GENERATE_H
#define WRT_GENERATOR_GENERATE_H

#include "generator/model/Target.h"
#include "generator/output/OutputSet.h"
#include "generator/read/Diagnostics.h"

#include <deque>
#include <optional>
#include <vector>

namespace bridgegen {

/// What besides the declarations goes into the outputs.
struct Extras {
  const Source *handWritten = nullptr; ///< lists classes that the tables name; null for none
  std::string delegateHeader;          ///< what the delegate factories include; empty for nothing
  std::string componentHeader;         ///< what the families for components include, likewise
  std::vector<std::string> selection;  ///< types and namespaces; empty for everything
  bool isReference = false;            ///< the reference's pages are made, not the outputs
  const Source *platform = nullptr; ///< what the platform has written, for them; null for unknown
  Target target = {};               ///< an add-on refers to the sources that are known
};

/// Reads, checks and emits all sources in memory. Nothing when something is wrong, which
/// `diagnostics` tells; its places point into the sources.
std::optional<OutputSet> generate(const std::deque<Source> &sources, const Extras &extras,
                                  Diagnostics &diagnostics);

} // namespace bridgegen

#endif
