#import <Foundation/Foundation.h>

#include "platform/linux/tests/Threads.h"

#include <CrossPortability.h>
#include <cstdlib>
#include <gtest/gtest.h>
#include <optional>
#include <sstream>
#include <string>

namespace {

/// Sets `WRT_LOG_LEVEL`, or unsets it, to the end of the scope.
class LogLevel {
public:
  explicit LogLevel(const char *value) {
    if (const char *old = std::getenv(kName))
      old_ = old;
    set(value);
  }
  ~LogLevel() { set(old_ ? old_->c_str() : nullptr); }
  LogLevel(const LogLevel &) = delete;
  LogLevel &operator=(const LogLevel &) = delete;

private:
  static constexpr const char *kName = "WRT_LOG_LEVEL";
  static void set(const char *value) {
    if (value != nullptr) {
      setenv(kName, value, 1);
    } else {
      unsetenv(kName);
    }
  }
  std::optional<std::string> old_;
};

struct Expected {
  const char *value;
  uint32_t threshold;
  int answers[3]; ///< for levels 2, 3 and 4
};

class LogThreshold : public testing::TestWithParam<Expected> {};

TEST_P(LogThreshold, ComesFromTheEnvironmentAndIsCached) {
  const Expected &expected = GetParam();
  const LogLevel level(expected.value);
  for (int index = 0; index < 3; ++index) {
    XPLogContext context{};
    EXPECT_EQ(XPLogDetermineLogLevel(index + 2, &context, "", "function", 1),
              expected.answers[index]);
    EXPECT_EQ(context.threshold, expected.threshold);
    EXPECT_EQ(context.reserved, 0u);
  }
}

INSTANTIATE_TEST_SUITE_P(All, LogThreshold,
                         testing::Values(Expected{nullptr, 3, {1, 1, 0}},
                                         Expected{"1", 1, {0, 0, 0}}, Expected{"2", 2, {1, 0, 0}},
                                         Expected{"4", 4, {1, 1, 1}}, Expected{"0", 1, {0, 0, 0}},
                                         Expected{"-7", 1, {0, 0, 0}}, Expected{"", 3, {1, 1, 0}},
                                         Expected{"3x", 3, {1, 1, 0}}));

TEST(Log, MessageNamesLevelFunctionAndText) {
  XPLogContext context{};
  testing::internal::CaptureStderr();
  XPLogS(3, &context, "+[Class call:]", "", 7, @"Failed %@ %lx %5ld|%lld %s%%", @"it",
         static_cast<int>(0x80004002), -1, -1LL, "100");
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "[3] +[Class call:]: Failed it 80004002    -1|-1 100%\n");
}

TEST(Log, LinesOfSeveralThreadsStayWhole) {
  constexpr int kThreads = 4;
  constexpr int kLines = 100;
  testing::internal::CaptureStderr();
  wrt::test::onThreads(kThreads, [](int thread) {
    XPLogContext context{};
    for (int line = 0; line < kLines; ++line)
      XPLogS(4, &context, "function", "", line, @"%d says %@", thread, @"all of this");
  });
  std::istringstream output(testing::internal::GetCapturedStderr());
  int counts[kThreads] = {};
  for (std::string line; std::getline(output, line);) {
    const std::string prefix = "[4] function: ";
    ASSERT_EQ(line.substr(0, prefix.size()), prefix);
    const int thread = line.at(prefix.size()) - '0';
    ASSERT_EQ(line.substr(prefix.size() + 1), " says all of this");
    ++counts[thread];
  }
  for (const int count : counts)
    EXPECT_EQ(count, kLines);
}

TEST(LogDeathTest, AbortWritesABacktrace) {
  EXPECT_EXIT(XPAbortWithBacktrace(), testing::KilledBySignal(SIGABRT),
              "Aborting. Backtrace:\n(.*\n)*.*platform_tests");
}

} // namespace
