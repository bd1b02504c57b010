#include "tests/support/Cell.h"

#include "tests/support/LogRecorder.h"

#include <WRTLedger.h>

#import <Foundation/Foundation.h>

namespace wrt::test {

namespace {

std::vector<std::string> &names() {
  static std::vector<std::string> list;
  return list;
}

Leftover expected;

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
    WRTLedgerCounts leftover{};
    leftover.live[kWRTLedgerStrings] = expected.strings;
    leftover.live[kWRTLedgerStringHandles] = expected.strings;
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
  names().push_back(name);
  const std::string whole = name;
  const size_t dot = whole.find('.');
  testing::RegisterTest(
      whole.substr(0, dot).c_str(), whole.substr(dot + 1).c_str(), nullptr, nullptr, __FILE__,
      __LINE__, [body]() -> testing::Test * { return new CellTest(body); });
}

void expectLeftover(Leftover leftover) { expected = leftover; }

std::vector<std::string> cellNames() { return names(); }

} // namespace wrt::test
