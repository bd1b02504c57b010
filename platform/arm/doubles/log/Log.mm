#include <CrossPortability.h>

#include "platform/arm/doubles/Host.h"

namespace {

int written = 0;
int lastLevel = 0;
const char *lastFunction = "";

constexpr uint32_t kThreshold = 4;

} // namespace

extern "C" {

/// How many messages were written, and the last one's level and function.
int testLogCount(void) { return written; }
int testLogLevel(void) { return lastLevel; }
const char *testLogFunction(void) { return lastFunction; }

int XPLogDetermineLogLevel(int level, XPLogContext *context, const char *, const char *, int) {
  context->threshold = kThreshold;
  return static_cast<uint32_t>(level) <= kThreshold;
}

void XPLogS(int level, XPLogContext *, const char *function, const char *, int, NSString *, ...) {
  ++written;
  lastLevel = level;
  lastFunction = function;
}

void XPAbortWithBacktrace(void) { hostEnd("XPAbortWithBacktrace"); }
}
