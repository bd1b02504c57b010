#ifndef WRT_LEDGER_TEST_H
#define WRT_LEDGER_TEST_H

#include "platform/linux/ledger/WRTLedger.h"

#include <gtest/gtest.h>
#include <string>

namespace wrt::test {

inline std::string describe(WRTLedgerCounts counts) {
  std::string text(WRTLedgerDescribe(counts, nullptr, 0), '\0');
  WRTLedgerDescribe(counts, text.data(), text.size() + 1);
  return text;
}

/// A test after which the ledger has to stand where it stood before.
class LedgerTest : public testing::Test {
protected:
  void TearDown() override { EXPECT_EQ(change(), "nothing"); }

  /// What was handed out and not given back since the test began.
  std::string change() const { return describe(WRTLedgerDifference(before_, WRTLedgerRead())); }

private:
  WRTLedgerCounts before_ = WRTLedgerRead();
};

} // namespace wrt::test

#endif
