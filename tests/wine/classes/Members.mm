#include "tests/wine/classes/Members.h"

#include "tests/wine/classes/Expectations.h"

#include "platform/linux/ledger/WRTLedger.h"

#include <WRTStatus.h>

#include <string>

namespace wrt::test {

namespace {

Answer expected;
int handedOver = 0;

/// What the caller's error variable says of a call before which it held `before`.
std::string describe(NSError *error, NSError *before) {
  if (error == before)
    return "no_interface";
  if (error == nil)
    return "succeeds";
  if ([error code] == status::kNotImplemented)
    return "not_implemented";
  return [[NSString stringWithFormat:@"fails with 0x%08x", (unsigned)[error code]] UTF8String];
}

std::string describe(Answer answer) {
  switch (answer) {
  case Answer::NotImplemented:
    return "not_implemented";
  case Answer::NoInterface:
    return "no_interface";
  default:
    return "succeeds";
  }
}

class MemberTest : public testing::Test {
public:
  MemberTest(std::string name, void (*body)(NSError **)) : name_(std::move(name)), body_(body) {}

  void TestBody() override {
    const auto answer = expectations().find(name_);
    if (answer == expectations().end())
      GTEST_FAIL() << "not in the list of expectations";
    expected = answer->second;
    handedOver = 0;
    const WRTLedgerCounts before = WRTLedgerRead();
    {
      NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
      // The frame stores nil or the failure; only a call that is not made leaves what was there.
      NSError *const stale = [NSError errorWithDomain:@"stale" code:1 userInfo:nil];
      NSError *error = stale;
      body_(&error);
      EXPECT_EQ(describe(expected), describe(error, stale));
      [pool release];
    }
    // The strings and blocks that the call made, and the handlers, unless they were kept for good.
    const WRTLedgerCounts left = WRTLedgerDifference(before, WRTLedgerRead());
    EXPECT_EQ(handedOver, left.live[kWRTLedgerStringHandles]);
    EXPECT_EQ(0, left.live[kWRTLedgerTaskBlocks]);
    EXPECT_EQ(0, left.live[kWRTLedgerDelegates]);
    EXPECT_EQ(0, left.live[kWRTLedgerObjects]);
  }

private:
  std::string name_;
  void (*body_)(NSError **);
};

} // namespace

Member::Member(const char *name, void (*body)(NSError **)) {
  const std::string whole = name;
  const size_t dot = whole.find('.');
  testing::RegisterTest(whole.substr(0, dot).c_str(), whole.substr(dot + 1).c_str(), nullptr,
                        nullptr, __FILE__, __LINE__,
                        [whole, body]() -> testing::Test * { return new MemberTest(whole, body); });
}

Answer expectedAnswer() { return expected; }

void handOver(int strings) { handedOver += strings; }

long liveDelegates() { return WRTLedgerRead().live[kWRTLedgerDelegates]; }

} // namespace wrt::test
