#ifndef WRT_TESTS_LOG_RECORDER_H
#define WRT_TESTS_LOG_RECORDER_H

#include <string>
#include <vector>

namespace wrt::test {

/// A message that reached the logging library.
struct LogRecord {
  int level;
  std::string function;
  std::string file;
  std::string text;

  bool operator==(const LogRecord &) const = default;
};

/// The messages since the recorder was cleared, which each cell does first. The test program's own
/// `XPLogS` stands in front of the platform's.
std::vector<LogRecord> logRecords();
void clearLog();

/// What the logging library answers for a context without a threshold. The recorder leaves contexts
/// undetermined, so that every log site asks.
void setLogAnswer(int (*answer)(int level));

/// Tells what `XPLogDetermineLogLevel` was asked last: function and file, and for which context.
std::string lastLogQuestion();
const void *lastLogContext();

/// Leaves `threshold` in the context that is asked for next, as a logging library may. For a
/// process that is to end: nothing takes it back.
void settleNextThreshold(uint32_t threshold);

/// When the process ends in `XPAbortWithBacktrace` or the like, prints how many messages there were
/// and each of them, where a death test sees it.
void printLogWhenAborted();

} // namespace wrt::test

#endif
