#ifndef WRT_LEDGER_TEST_H
#define WRT_LEDGER_TEST_H

#include "platform/linux/ledger/WRTLedger.h"

#import <Foundation/Foundation.h>

#include <gtest/gtest.h>
#include <latch>
#include <string>
#include <thread>
#include <vector>

namespace wrt::test {

/// A test after which the ledger has to stand where it stood before.
class LedgerTest : public testing::Test {
protected:
  void TearDown() override { EXPECT_EQ(change(), "nothing"); }

  /// What was handed out and not given back since the test began.
  std::string change() const {
    const WRTLedgerCounts counts = WRTLedgerDifference(before_, WRTLedgerRead());
    std::string text(WRTLedgerDescribe(counts, nullptr, 0), '\0');
    WRTLedgerDescribe(counts, text.data(), text.size() + 1);
    return text;
  }

private:
  WRTLedgerCounts before_ = WRTLedgerRead();
};

/// Runs `work(index)` on `count` threads that start together, `rounds` times on each, and waits for
/// all of them.
template <class Work>
void onThreads(int count, int rounds, Work work) {
  // GNUstep Base makes some of its locks when the first other thread comes, which ThreadSanitizer
  // cannot follow.
  std::jthread([] {
    @autoreleasepool {
      [[[NSObject alloc] init] autorelease];
    }
  }).join();
  std::latch start(count);
  std::vector<std::jthread> threads;
  threads.reserve(static_cast<size_t>(count));
  for (int index = 0; index < count; ++index) {
    threads.emplace_back([&, index] {
      start.arrive_and_wait();
      for (int round = 0; round < rounds; ++round)
        work(index);
    });
  }
}

} // namespace wrt::test

#endif
