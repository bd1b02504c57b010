#ifndef WRT_BENCH_PICTURE_H
#define WRT_BENCH_PICTURE_H

#include "bench/Measurement.h"

#include <string>

namespace wrt::bench {

/// A picture (SVG) of where the instructions of each row go: the platform, the messages that have
/// to be sent, and the rest. Readable on light and on dark ground.
std::string picture(const Measurements &measurements);

} // namespace wrt::bench

#endif
