// Components that misbehave.

#include "tests/component/HostileObject.h"
#include "tests/matrix/Fixture.h"

namespace wrt::test {

namespace {

WRTTestClassBridge *hostileBridge() {
  resetScript();
  clearCrossings();
  return [WRTTestClassBridge bridgeTransfer:implement::make<HostileObject>().detach()->identity()];
}

void otherSuccessCodes() {
  WRTTestClassBridge *bridge = hostileBridge();
  NSError *error = staleError();
  [bridge voidFunctionWithError:&error];
  EXPECT_EQ(nil, error);
  EXPECT_EQ(5, [bridge returnPrimitiveWithError:&error]);
}

void nothingWritten() {
  WRTTestClassBridge *bridge = hostileBridge();
  EXPECT_EQ(nil, [bridge returnInterfaceWithError:nullptr]);
  EXPECT_EQ(nil, [bridge returnRtcWithError:nullptr]);
  EXPECT_EQ(0u, [[bridge returnStringWithError:nullptr] length]);
  NSArray *array = [bridge returnStringArrayWithError:nullptr];
  EXPECT_NE(nil, array);
  EXPECT_EQ(0u, [array count]);
}

void lyingCounts() {
  WRTTestClassBridge *bridge = hostileBridge();
  NSMutableArray *array = [NSMutableArray arrayWithObject:@"before"];
  [bridge outInterfaceArrayWithArr:array error:nullptr];
  EXPECT_EQ(0u, [array count]) << "a negative count is none";
  [bridge outRtcArrayPreallocatedWithSize:3 arr:array error:nullptr];
  EXPECT_EQ(3u, [array count]) << "never more than there is room for";
  [bridge outStringArrayPreallocatedWithSize:2 arr:array error:nullptr];
  EXPECT_EQ("0 1", joined(array));
  [bridge outInterfaceArrayPreallocatedWithSize:2 arr:array error:nullptr];
  EXPECT_EQ(2u, [array count]);
  EXPECT_EQ([NSNull null], [array lastObject]) << "a block starts empty";
  EXPECT_EQ(" ", joined([bridge returnStringArrayPreallocatedWithSize:2 error:nullptr]));
  clearCrossings();
}

const Cell cells[] = {
    {"hostile.return.any.success_codes", otherSuccessCodes},
    {"hostile.return.any.nothing_written", nothingWritten},
    {"hostile.out.array.lying_counts", lyingCounts},
};

} // namespace

} // namespace wrt::test
