/// The platform interface: logging and giving up, supplied by `CrossPortability_zorvex`.
#ifndef CROSS_PORTABILITY_H
#define CROSS_PORTABILITY_H

#import <Foundation/NSString.h>
#include <stdint.h>

#if defined(__cplusplus)
extern "C" {
#endif

/// One per source unit that logs: static, zero at first, filled by the logging library.
typedef struct XPLogContext {
  uint32_t reserved;
  /// 0 until determined; then a message of level L is written when the threshold is at least L.
  uint32_t threshold;
} XPLogContext;

/// Determines and caches the context's threshold: 1 when a message of `level` is to be written,
/// else 0. On Linux the environment variable `WRT_LOG_LEVEL` is the threshold, 3 when it is not set
/// (a failure is written, a suspicion not); with 1 nothing is.
int XPLogDetermineLogLevel(int level, XPLogContext *context, const char *file, const char *function,
                           int line);
/// Writes a message. Note the order: the function's name stands before the file here. The `l` of
/// `%lx` and the like means 32 bits on every target.
void XPLogS(int level, XPLogContext *context, const char *function, const char *file, int line,
            NSString *format, ...);
/// Writes a backtrace and ends the process; does not return.
__attribute__((noreturn)) void XPAbortWithBacktrace(void);

#if defined(__cplusplus)
}
#endif

#endif
