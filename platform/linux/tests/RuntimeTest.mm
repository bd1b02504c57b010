// What Objective-C code finds here besides Foundation: blocks, semaphores, memory and the log.

#import <Foundation/Foundation.h>

#include "platform/linux/tests/LedgerTest.h"

#include <Block.h>
#include <CrossPortability.h>
#include <DispatchSemaphore.h>
#include <ObjCRuntime.h>
#include <WRTBridge.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <memory>

namespace wrt::test {
namespace {

class Blocks : public LedgerTest {
protected:
  ~Blocks() override { [probe_ release]; }
  template <class Block>
  static Block retained(Block block) {
    return static_cast<Block>(objc_retainBlock(static_cast<id>(block)));
  }

  std::shared_ptr<int> number_ = std::make_shared<int>(3);
  const id probe_ = [[NSObject alloc] init];
};

TEST_F(Blocks, CopyRetainsWhatTheBlockCaptures) {
  auto number = number_;
  id probe = probe_;
  int (^inner)(void) = ^{
    return *number + (probe ? 1 : 0);
  };
  int (^outer)(void) = ^{
    return inner() * 10;
  };
  const auto copy = retained(outer);
  EXPECT_EQ(change(), "blocks +2");
  // The fixture's, the test's, one in the block of the frame, and one in the copy of that.
  EXPECT_EQ(number.use_count(), 4);
  EXPECT_EQ([probe retainCount], 2u);
  EXPECT_EQ(copy(), 40);
  objc_release(static_cast<id>(copy));
  EXPECT_EQ(number.use_count(), 3);
  EXPECT_EQ([probe retainCount], 1u);
}

TEST_F(Blocks, VariablesAreSharedByEveryBlockAndTheFrame) {
  __block std::shared_ptr<int> count = number_;
  __block id unowned = probe_;
  void (^add)(void) = ^{
    ++*count;
    unowned = nil;
  };
  const auto first = retained(add), second = retained(add);
  EXPECT_EQ(change(), "blocks +2, block variables +2");
  first();
  second();
  EXPECT_EQ(*count, 5);
  EXPECT_EQ(count.use_count(), 2);
  EXPECT_EQ(unowned, nil);
  EXPECT_EQ([probe_ retainCount], 1u);
  objc_release(static_cast<id>(first));
  objc_release(static_cast<id>(second));
  EXPECT_EQ(change(), "block variables +2");
}

TEST_F(Blocks, AreObjectsThatACollectionKeeps) {
  @autoreleasepool {
    int seven = 7;
    NSMutableArray *array = [NSMutableArray array];
    [array addObject:[[static_cast<id>(^{
             return seven;
           }) copy] autorelease]];
    [array addObject:static_cast<id>(^{
             return 8;
           })];
    int sum = 0;
    for (id element in [array reverseObjectEnumerator]) {
      EXPECT_TRUE([element isKindOfClass:NSClassFromString(@"NSBlock")]);
      sum = sum * 10 + static_cast<int (^)(void)>(element)();
    }
    EXPECT_EQ(sum, 87);
    EXPECT_EQ(change(), "blocks +1");
  }
}

TEST_F(Blocks, AreCountedAcrossThreadsAndFreedOnce) {
  id probe = probe_;
  id block = objc_retainBlock(static_cast<id>(^{
    (void)probe;
  }));
  onThreads(4, 1000, [block](int) {
    objc_retain(block);
    objc_release(objc_retainBlock(block));
    objc_release(block);
  });
  EXPECT_EQ([probe retainCount], 2u);
  objc_release(block);
  EXPECT_EQ([probe retainCount], 1u);
}

/// Nanoseconds since the monotonic clock's start.
uint64_t now() {
  const std::chrono::nanoseconds time = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<uint64_t>(time.count());
}

TEST(Semaphore, GivesOutWhatItHoldsAndThenTimesOut) {
  id semaphore = __zorvex_dispatch_semaphore_create(2);
  EXPECT_EQ(__zorvex_dispatch_semaphore_wait(semaphore, ZORVEX_DISPATCH_TIME_FOREVER), 0);
  EXPECT_EQ(__zorvex_dispatch_semaphore_wait(semaphore, 0), 0);
  EXPECT_NE(__zorvex_dispatch_semaphore_wait(semaphore, 0), 0);
  const uint64_t deadline = now() + 30'000'000;
  EXPECT_NE(__zorvex_dispatch_semaphore_wait(semaphore, deadline), 0);
  EXPECT_GE(now(), deadline);
  // A wait that timed out has taken nothing and is not waiting any more.
  EXPECT_EQ(__zorvex_dispatch_semaphore_signal(semaphore), 0);
  EXPECT_EQ(__zorvex_dispatch_semaphore_wait(semaphore, 0), 0);
  objc_release(semaphore);
}

TEST(Semaphore, EverySignalWakesExactlyOneWait) {
  id semaphore = __zorvex_dispatch_semaphore_create(0);
  std::atomic<int> taken = 0;
  onThreads(4, 500, [&](int index) {
    if (index % 2 == 0)
      __zorvex_dispatch_semaphore_signal(semaphore);
    else if (__zorvex_dispatch_semaphore_wait(semaphore, ZORVEX_DISPATCH_TIME_FOREVER) == 0)
      ++taken;
  });
  EXPECT_EQ(taken, 2 * 500);
  EXPECT_NE(__zorvex_dispatch_semaphore_wait(semaphore, 0), 0);
  objc_release(semaphore);
}

class Memory : public LedgerTest {};

TEST_F(Memory, OfNoBytesIsABlockToo) {
  void *first = WRTTaskMemAlloc(0);
  void *second = WRTTaskMemAlloc(0);
  ASSERT_NE(first, nullptr);
  EXPECT_NE(first, second);
  EXPECT_EQ(change(), "task blocks +2");
  for (void *block : {first, second, static_cast<void *>(nullptr)})
    WRTTaskMemFree(block);
}

TEST(Log, ThresholdComesFromTheEnvironmentAndIsCached) {
  const std::pair<const char *, uint32_t> cases[] = {{"1", 1},  {"2", 2}, {"4", 4}, {"0", 1},
                                                     {"-7", 1}, {"", 3},  {"3x", 3}};
  for (const auto &[value, threshold] : cases) {
    setenv("WRT_LOG_LEVEL", value, 1);
    for (uint32_t level : {2, 3, 4}) {
      XPLogContext context{};
      EXPECT_EQ(XPLogDetermineLogLevel(static_cast<int>(level), &context, "", "function", 1),
                level <= threshold);
      EXPECT_EQ(context.threshold, threshold) << value;
    }
  }
  unsetenv("WRT_LOG_LEVEL");
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
} // namespace wrt::test
