#include "tests/support/Cell.h"

#include "tests/support/LogRecorder.h"

#include "platform/linux/ledger/WRTLedger.h"

#import <Foundation/Foundation.h>

#include <algorithm>
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
bool onlyTheEndCounts = false;

std::map<std::string, std::function<void()>> &registered() {
  static std::map<std::string, std::function<void()>> bodies;
  return bodies;
}

/// What the cell has announced.
WRTLedgerCounts announced() {
  WRTLedgerCounts counts{};
  counts.live[kWRTLedgerStrings] = expected.strings;
  counts.live[kWRTLedgerStringHandles] = expected.strings + expected.extraHandles;
  counts.live[kWRTLedgerTaskBlocks] = expected.taskBlocks;
  return counts;
}

std::string describe(const WRTLedgerCounts &counts) {
  char text[256];
  WRTLedgerDescribe(counts, text, sizeof text);
  return text;
}

/// Runs the cell; what it leaves behind.
WRTLedgerCounts leftBehind(const std::function<void()> &body) {
  expected = {};
  const WRTLedgerCounts before = WRTLedgerRead();
  @autoreleasepool {
    body();
  }
  lastingThings.clear();
  return WRTLedgerDifference(before, WRTLedgerRead());
}

class CellTest : public testing::Test {
public:
  explicit CellTest(const std::function<void()> &body) : body_(body) {}

  void TestBody() override {
    clearLog();
    const WRTLedgerCounts counts = leftBehind(body_);
    if (std::exchange(leaksAreAnnounced, false))
      __lsan_enable();
    EXPECT_EQ(describe(announced()), describe(counts)) << "left behind";
  }

private:
  const std::function<void()> &body_;
};

} // namespace

Cell::Cell(const char *name, const std::function<void()> &body) {
  const std::string whole = name;
  const std::function<void()> &kept = registered()[whole] = body;
  const size_t dot = whole.find('.');
  testing::RegisterTest(whole.substr(0, dot).c_str(), whole.substr(dot + 1).c_str(), nullptr,
                        nullptr, __FILE__, __LINE__,
                        [&kept]() -> testing::Test * { return new CellTest(kept); });
}

const std::map<std::string, std::function<void()>> &allCells() { return registered(); }

std::string endOf(const std::function<void()> &body) {
  onlyTheEndCounts = true;
  std::string end;
  const WRTLedgerCounts counts = leftBehind([&] {
    @try {
      body();
    } @catch (id exception) {
      end = std::string("raised ") + [[exception description] UTF8String];
    }
  });
  const WRTLedgerCounts most = announced();
  for (size_t kind = 0; kind < kWRTLedgerKindCount && end.empty(); ++kind)
    if (counts.live[kind] < 0 || counts.live[kind] > most.live[kind])
      end = "left behind " + describe(counts) + " of " + describe(most) + " announced";
  return end;
}

bool runsForItsEnd() { return onlyTheEndCounts; }

void expectLeftover(Leftover leftover) {
  if (__lsan_disable && !leaksAreAnnounced) {
    __lsan_disable();
    leaksAreAnnounced = true;
  }
  expected.strings += leftover.strings;
  expected.extraHandles += leftover.extraHandles;
  expected.taskBlocks += leftover.taskBlocks;
#if defined(WRT_RELEASE_STRING_RESULTS)
  expected.strings = expected.extraHandles = 0;
#endif
}

bool announcesLeftover() {
  const WRTLedgerCounts counts = announced();
  return std::ranges::any_of(counts.live, [](auto count) { return count != 0; });
}

void keepUntilDrained(std::shared_ptr<void> thing) { lastingThings.push_back(std::move(thing)); }

} // namespace wrt::test
