#ifndef WRT_CORE_LOG_H
#define WRT_CORE_LOG_H

#include <CrossPortability.h>

namespace wrt::log {

/// How severe a message is; lower is more severe.
enum Level {
  kFatal = 2,     ///< followed by `XPAbortWithBacktrace`
  kFailure = 3,   ///< a failure that the caller sees as nil, null or an error
  kSuspicious = 4 ///< a call that is answered with nil
};

/// The context of the core bridge classes. Conversions and members have contexts of their own.
extern XPLogContext coreContext;

/// Whether a message of `level` from here is to be written: by the context's threshold, or, as long
/// as that is not determined, by what the logging library says.
inline bool isEnabled(Level level, XPLogContext &context, const char *function, int line) {
  const uint32_t threshold = __atomic_load_n(&context.threshold, __ATOMIC_RELAXED);
  if (threshold != 0)
    return threshold >= static_cast<uint32_t>(level);
  const int answer = XPLogDetermineLogLevel(level, &context, "", function, line);
  return level == kFatal ? answer == 1 : answer != 0;
}

/// Writes a message in the manner of `NSString` formats if it is enabled. `function` is the name
/// under which it is logged, `line` that of the log site.
template <class... Arguments>
void write(Level level, XPLogContext &context, const char *function, int line, NSString *format,
           Arguments... arguments) {
  if (isEnabled(level, context, function, line))
    XPLogS(level, &context, function, "", line, format, arguments...);
}

} // namespace wrt::log

#endif
