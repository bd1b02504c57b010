#include "tests/support/LogRecorder.h"

#include <CrossPortability.h>

#import <Foundation/Foundation.h>

#include <csignal>
#include <cstdio>
#include <mutex>
#include <utility>

namespace {

std::mutex mutex;
std::vector<wrt::test::LogRecord> records;
std::string question;
const void *questionContext;
uint32_t nextThreshold = 0;
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

const void *lastLogContext() {
  std::lock_guard lock(mutex);
  return questionContext;
}

void settleNextThreshold(uint32_t threshold) { nextThreshold = threshold; }

void printLogWhenAborted() {
  std::signal(SIGABRT, [](int) {
    std::fprintf(stderr, "%zu messages\n", records.size());
    for (const LogRecord &record : records)
      std::fprintf(stderr, "%d %s %s\n", record.level, record.function.c_str(),
                   record.text.c_str());
  });
}

} // namespace wrt::test

extern "C" __attribute__((visibility("default"))) int
XPLogDetermineLogLevel(int level, XPLogContext *context, const char *file, const char *function,
                       int) {
  std::lock_guard lock(mutex);
  question = std::string(function) + "|" + file;
  questionContext = context;
  if (nextThreshold)
    context->threshold = std::exchange(nextThreshold, 0);
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
