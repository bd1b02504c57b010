#include <CrossPortability.h>

#import <Foundation/Foundation.h>

#include "platform/linux/log/LogFormat.h"

#include <WRTObjcBridge/WRTTypes.h>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <execinfo.h>
#include <string>
#include <unistd.h>

namespace {

/// Levels 2 and 3, so that every failure is seen and mere suspicion is not.
constexpr uint32_t kDefaultThreshold = 3;

/// What `WRT_LOG_LEVEL` says; a number below 1 counts as 1, no number at all as the default.
uint32_t thresholdFromEnvironment() {
  const char *text = std::getenv("WRT_LOG_LEVEL");
  if (text == nullptr)
    return kDefaultThreshold;
  const char *end = text + std::strlen(text);
  int threshold = 0;
  const auto [stop, error] = std::from_chars(text, end, threshold);
  if (error != std::errc() || stop != end)
    return kDefaultThreshold;
  return threshold < 1 ? 1 : static_cast<uint32_t>(threshold);
}

/// Writes all of the text to stderr. A line that fits a pipe's buffer goes out in one piece, which
/// keeps the lines of several threads apart.
void writeToStandardError(const std::string &text) {
  size_t written = 0;
  while (written < text.size()) {
    const ssize_t count = write(STDERR_FILENO, text.data() + written, text.size() - written);
    if (count < 0 && errno == EINTR)
      continue;
    if (count <= 0)
      return;
    written += static_cast<size_t>(count);
  }
}

} // namespace

extern "C" WRT_DLLEXPORT int XPLogDetermineLogLevel(int level, XPLogContext *context, const char *,
                                                    const char *, int) {
  const uint32_t threshold = thresholdFromEnvironment();
  // Other threads may ask, and read the threshold, at the same time.
  std::atomic_ref(context->threshold).store(threshold, std::memory_order_relaxed);
  return threshold >= static_cast<uint32_t>(level) ? 1 : 0;
}

extern "C" WRT_DLLEXPORT void XPLogS(int level, XPLogContext *, const char *function, const char *,
                                     int, NSString *format, ...) {
  // Messages come from threads without a pool too, and descriptions are autoreleased.
  @autoreleasepool {
    va_list arguments;
    va_start(arguments, format);
    NSString *ownFormat =
        [NSString stringWithUTF8String:wrt::log::withNarrowLongs([format UTF8String]).c_str()];
    NSString *text = [[[NSString alloc] initWithFormat:ownFormat arguments:arguments] autorelease];
    va_end(arguments);

    std::string line = "[" + std::to_string(level) + "] ";
    line += function;
    line += ": ";
    line += [text UTF8String];
    line += '\n';
    writeToStandardError(line);
  }
}

extern "C" WRT_DLLEXPORT void XPAbortWithBacktrace() {
  constexpr int kMaximumDepth = 128;
  void *frames[kMaximumDepth];
  const int depth = backtrace(frames, kMaximumDepth);
  writeToStandardError("Aborting. Backtrace:\n");
  backtrace_symbols_fd(frames, depth, STDERR_FILENO);
  std::abort();
}
