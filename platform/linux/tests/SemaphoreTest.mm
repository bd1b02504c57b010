#include "platform/linux/tests/Threads.h"

#include <DispatchSemaphore.h>
#import <Foundation/Foundation.h>
#include <ObjCRuntime.h>
#include <atomic>
#include <chrono>
#include <gtest/gtest.h>

namespace {

/// Nanoseconds since the monotonic clock's start.
uint64_t inMilliseconds(int64_t milliseconds) {
  const auto time =
      std::chrono::steady_clock::now().time_since_epoch() + std::chrono::milliseconds(milliseconds);
  return static_cast<uint64_t>(std::chrono::nanoseconds(time).count());
}

TEST(Semaphore, GivesOutWhatItHoldsAndThenTimesOut) {
  id semaphore = __zorvex_dispatch_semaphore_create(2);
  EXPECT_EQ(__zorvex_dispatch_semaphore_wait(semaphore, ZORVEX_DISPATCH_TIME_FOREVER), 0);
  EXPECT_EQ(__zorvex_dispatch_semaphore_wait(semaphore, 0), 0);
  EXPECT_NE(__zorvex_dispatch_semaphore_wait(semaphore, 0), 0);
  const uint64_t deadline = inMilliseconds(30);
  EXPECT_NE(__zorvex_dispatch_semaphore_wait(semaphore, deadline), 0);
  EXPECT_GE(inMilliseconds(0), deadline);
  // A wait that timed out has taken nothing and is not waiting any more.
  EXPECT_EQ(__zorvex_dispatch_semaphore_signal(semaphore), 0);
  EXPECT_EQ(__zorvex_dispatch_semaphore_wait(semaphore, 0), 0);
  objc_release(semaphore);
}

TEST(Semaphore, EverySignalWakesExactlyOneWait) {
  id semaphore = __zorvex_dispatch_semaphore_create(0);
  std::atomic<int> taken = 0;
  constexpr int kEach = 500;
  wrt::test::onThreads(4, [&](int index) {
    for (int round = 0; round < kEach; ++round) {
      if (index % 2 == 0) {
        __zorvex_dispatch_semaphore_signal(semaphore);
      } else if (__zorvex_dispatch_semaphore_wait(semaphore, ZORVEX_DISPATCH_TIME_FOREVER) == 0) {
        ++taken;
      }
    }
  });
  EXPECT_EQ(taken, 2 * kEach);
  EXPECT_NE(__zorvex_dispatch_semaphore_wait(semaphore, 0), 0);
  objc_release(semaphore);
}

} // namespace
