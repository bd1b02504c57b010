#include "tests/support/LogRecorder.h"

#include <CrossPortability.h>

#import <Foundation/Foundation.h>

#include <mutex>

namespace {

std::mutex mutex;
std::vector<wrt::test::LogRecord> records;
std::string question;
int always(int) { return 1; }
int (*answer)(int) = always;

} // namespace

namespace wrt::test {

std::vector<LogRecord> logRecords() {
  std::lock_guard lock(mutex);
  return records;
}

void clearLog() {
  std::lock_guard lock(mutex);
  records.clear();
  question.clear();
  answer = always;
}

void setLogAnswer(int (*newAnswer)(int level)) {
  std::lock_guard lock(mutex);
  answer = newAnswer;
}

std::string lastLogQuestion() {
  std::lock_guard lock(mutex);
  return question;
}

} // namespace wrt::test

extern "C" __attribute__((visibility("default"))) int
XPLogDetermineLogLevel(int level, XPLogContext *, const char *file, const char *function, int) {
  std::lock_guard lock(mutex);
  question = std::string(function) + "|" + file;
  return answer(level);
}

extern "C" __attribute__((visibility("default"))) void XPLogS(int level, XPLogContext *,
                                                              const char *function,
                                                              const char *file, int,
                                                              NSString *format, ...) {
  va_list arguments;
  va_start(arguments, format);
  NSString *text = [[NSString alloc] initWithFormat:format arguments:arguments];
  va_end(arguments);
  {
    std::lock_guard lock(mutex);
    records.push_back({level, function, file, [text UTF8String]});
  }
  [text release];
}
