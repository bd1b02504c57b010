#import <Foundation/Foundation.h>

#include "platform/linux/tests/LedgerTest.h"
#include "platform/linux/tests/Threads.h"

#include <Block.h>
#include <ObjCRuntime.h>
#include <atomic>
#include <memory>

namespace {
std::atomic<int> livingProbes;
}

/// An object whose end can be seen.
@interface WRTBlockTestProbe : NSObject
@end

@implementation WRTBlockTestProbe
- (id)init {
  ++livingProbes;
  return [super init];
}
- (void)dealloc {
  --livingProbes;
  [super dealloc];
}
@end

namespace wrt::test {
namespace {

class Blocks : public LedgerTest {
protected:
  void TearDown() override {
    EXPECT_EQ(livingProbes, 0);
    LedgerTest::TearDown();
  }
};

TEST_F(Blocks, CopyRetainsWhatTheBlockCaptures) {
  auto number = std::make_shared<int>(3);
  WRTBlockTestProbe *probe = [[WRTBlockTestProbe alloc] init];
  int (^inner)(void) = ^{
    return *number + ([probe retainCount] > 0 ? 1 : 0);
  };
  int (^outer)(void) = ^{
    return inner() * 10;
  };
  auto copy = static_cast<int (^)(void)>(objc_retainBlock(static_cast<id>(outer)));
  EXPECT_EQ(change(), "blocks +2");
  // One that the test holds, one in each block of the frame, one in the copy of the inner block.
  EXPECT_EQ(number.use_count(), 3);
  EXPECT_EQ([probe retainCount], 2u);
  [probe release];
  EXPECT_EQ(copy(), 40);
  EXPECT_EQ(livingProbes, 1);
  objc_release(static_cast<id>(copy));
  EXPECT_EQ(number.use_count(), 2);
}

TEST_F(Blocks, VariablesAreSharedByEveryBlockAndTheFrame) {
  WRTBlockTestProbe *probe = [[WRTBlockTestProbe alloc] init];
  {
    __block std::shared_ptr<int> count = std::make_shared<int>(0);
    __block id unowned = probe;
    void (^add)(void) = ^{
      ++*count;
      unowned = nil;
    };
    auto first = static_cast<void (^)(void)>(objc_retainBlock(static_cast<id>(add)));
    auto second = static_cast<void (^)(void)>(objc_retainBlock(static_cast<id>(add)));
    EXPECT_EQ(change(), "blocks +2, block variables +2");
    first();
    second();
    EXPECT_EQ(*count, 2);
    EXPECT_EQ(count.use_count(), 1);
    EXPECT_EQ(unowned, nil);
    EXPECT_EQ([probe retainCount], 1u);
    objc_release(static_cast<id>(first));
    objc_release(static_cast<id>(second));
    EXPECT_EQ(change(), "block variables +2");
  }
  [probe release];
}

TEST_F(Blocks, AreObjectsThatACollectionKeeps) {
  @autoreleasepool {
    int seven = 7;
    NSMutableArray *array = [NSMutableArray array];
    int (^block)(void) = ^{
      return seven;
    };
    [array addObject:[[block copy] autorelease]];
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
  WRTBlockTestProbe *probe = [[WRTBlockTestProbe alloc] init];
  id block = objc_retainBlock(static_cast<id>(^{
    (void)probe;
  }));
  [probe release];
  constexpr int kThreads = 4;
  for (int thread = 0; thread < kThreads; ++thread)
    objc_retain(block);
  onThreads(kThreads, [block](int) {
    for (int round = 0; round < 1000; ++round)
      objc_release(objc_retainBlock(block));
    objc_release(block);
  });
  EXPECT_EQ(livingProbes, 1);
  objc_release(block);
}

} // namespace
} // namespace wrt::test
