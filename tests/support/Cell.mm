#include "tests/support/Cell.h"

#include "tests/support/LogRecorder.h"

#include "platform/linux/ledger/WRTLedger.h"

#import <Foundation/Foundation.h>

#include <utility>

// LeakSanitizer's own, where it is there. What is allocated in between is no leak to it; what a
// cell leaves behind is counted by the ledger all the same.
extern "C" void __lsan_disable() __attribute__((weak));
extern "C" void __lsan_enable() __attribute__((weak));

namespace wrt::test {

namespace {

Leftover expected;
bool leaksAreAnnounced = false;
std::vector<std::shared_ptr<void>> lastingThings;

std::string describe(const WRTLedgerCounts &counts) {
  char text[256];
  WRTLedgerDescribe(counts, text, sizeof text);
  return text;
}

class CellTest : public testing::Test {
public:
  explicit CellTest(void (*body)()) : body_(body) {}

  void SetUp() override {
    clearLog();
    expected = {};
    before_ = WRTLedgerRead();
  }

  void TestBody() override {
    NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
    body_();
    [pool release];
  }

  void TearDown() override {
    lastingThings.clear();
    if (std::exchange(leaksAreAnnounced, false))
      __lsan_enable();
    WRTLedgerCounts leftover{};
    leftover.live[kWRTLedgerStrings] = expected.strings;
    leftover.live[kWRTLedgerStringHandles] = expected.strings + expected.extraHandles;
    leftover.live[kWRTLedgerTaskBlocks] = expected.taskBlocks;
    leftover.live[kWRTLedgerObjects] = expected.objects;
    EXPECT_EQ(describe(leftover), describe(WRTLedgerDifference(before_, WRTLedgerRead())))
        << "left behind";
  }

private:
  void (*body_)();
  WRTLedgerCounts before_{};
};

} // namespace

Cell::Cell(const char *name, void (*body)()) {
  const std::string whole = name;
  const size_t dot = whole.find('.');
  testing::RegisterTest(whole.substr(0, dot).c_str(), whole.substr(dot + 1).c_str(), nullptr,
                        nullptr, __FILE__, __LINE__,
                        [body]() -> testing::Test * { return new CellTest(body); });
}

void expectLeftover(Leftover leftover) {
  if (__lsan_disable && !leaksAreAnnounced) {
    __lsan_disable();
    leaksAreAnnounced = true;
  }
  expected = leftover;
#if defined(WRT_RELEASE_STRING_RESULTS)
  expected.strings = expected.extraHandles = 0;
#endif
}

void keepUntilDrained(std::shared_ptr<void> thing) { lastingThings.push_back(std::move(thing)); }

} // namespace wrt::test
