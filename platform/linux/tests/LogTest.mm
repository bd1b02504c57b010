#import <Foundation/Foundation.h>

#include <CrossPortability.h>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

namespace {

TEST(Log, ThresholdComesFromTheEnvironmentAndIsCached) {
  const struct {
    const char *value;
    uint32_t threshold;
  } cases[] = {{"1", 1}, {"2", 2}, {"4", 4}, {"0", 1}, {"-7", 1}, {"", 3}, {"3x", 3}};
  const char *const before = std::getenv("WRT_LOG_LEVEL");
  const std::string saved = before ? before : "";
  for (const auto &[value, threshold] : cases) {
    setenv("WRT_LOG_LEVEL", value, 1);
    for (uint32_t level : {2, 3, 4}) {
      XPLogContext context{};
      EXPECT_EQ(XPLogDetermineLogLevel(static_cast<int>(level), &context, "", "function", 1),
                level <= threshold);
      EXPECT_EQ(context.threshold, threshold) << value;
    }
  }
  before ? setenv("WRT_LOG_LEVEL", saved.c_str(), 1) : unsetenv("WRT_LOG_LEVEL");
}

TEST(Log, MessageNamesLevelFunctionAndText) {
  XPLogContext context{};
  testing::internal::CaptureStderr();
  XPLogS(3, &context, "+[Class call:]", "", 7, @"Failed %@ %lx %5ld|%lld %s%%", @"it",
         static_cast<int>(0x80004002), -1, -1LL, "100");
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "[3] +[Class call:]: Failed it 80004002    -1|-1 100%\n");
}

TEST(LogDeathTest, AbortWritesABacktrace) {
  EXPECT_EXIT(XPAbortWithBacktrace(), testing::KilledBySignal(SIGABRT),
              "Aborting. Backtrace:\n(.*\n)*.*platform_tests");
}

} // namespace
