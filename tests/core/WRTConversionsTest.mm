// The error value and the rules by which messages are written.

#include "tests/support/Cell.h"
#include "tests/support/LogRecorder.h"

#include "core/Log.h"

#import <WRTObjcBridge/WRTConversions.h>
#import <WRTObjcBridge/WRTUnknownBridge.h>

using namespace wrt::test;
namespace log = wrt::log;

namespace {

const Cell errorValue("error.convert.status.normal", [] {
  EXPECT_EQ(nil, WRTCreateNSErrorFromHRESULT(0));
  EXPECT_EQ(nil, WRTCreateNSErrorFromHRESULT(1));
  EXPECT_EQ(nil, WRTCreateNSErrorFromHRESULT(0x7FFFFFFF));
  NSError *error = WRTCreateNSErrorFromHRESULT(static_cast<HRESULT>(0x80004002));
  EXPECT_TRUE([[error domain] isEqual:@"WRT"]);
  EXPECT_EQ(-2147467262, [error code]);
  EXPECT_EQ(0u, [[error userInfo] count]);
});

/// Whether a message of `level` is written with this threshold and this answer of the library's.
bool isWritten(log::Level level, uint32_t threshold, int (*answer)(int)) {
  XPLogContext context{0, threshold};
  setLogAnswer(answer);
  return log::isEnabled(level, context, "f", 1);
}

const Cell thresholds("log.message.threshold.normal", [] {
  const auto ask = [](int) -> int {
    ADD_FAILURE() << "asked although known";
    return 1;
  };
  EXPECT_TRUE(isWritten(log::kFatal, 3, ask));
  EXPECT_TRUE(isWritten(log::kFailure, 3, ask));
  EXPECT_FALSE(isWritten(log::kSuspicious, 3, ask));
  EXPECT_FALSE(isWritten(log::kFatal, 1, ask));
  EXPECT_TRUE(isWritten(log::kSuspicious, 0xFFFFFFFF, ask)) << "compared unsigned";

  const auto yes = [](int) { return 1; };
  const auto two = [](int) { return 2; };
  const auto no = [](int) { return 0; };
  EXPECT_TRUE(isWritten(log::kFatal, 0, yes));
  EXPECT_FALSE(isWritten(log::kFatal, 0, two)) << "a fatal message wants exactly 1";
  EXPECT_TRUE(isWritten(log::kFailure, 0, two));
  EXPECT_FALSE(isWritten(log::kFailure, 0, no));
});

const Cell question("log.message.question.normal", [] {
  [WRTUnknownBridge bridge:nullptr];
  EXPECT_EQ("+[WRTUnknownBridge bridge:]|", lastLogQuestion());
});

} // namespace
