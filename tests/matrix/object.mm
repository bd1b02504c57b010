// Interfaces and runtime classes, single and in arrays.

#include "tests/matrix/Fixture.h"

namespace wrt::test {

namespace {

const MemberCell objectIn("object.in.single.normal", [](Bridge bridge) {
  const id interface = newBridge([WRTTestInterfaceBridge class]);
  for (id object : {interface, newBridge([WRTTestClassBridge class]), nil}) {
    NSError *error = staleError();
    [bridge inInterfaceWithArg:object error:&error];
    [bridge inRtcWithArg:object error:nullptr];
    EXPECT_EQ(nil, error);
  }
  EXPECT_EQ((Crossings{"InInterface object", "InRtc object", "InInterface object", "InRtc object",
                       "InInterface null", "InRtc null"}),
            takeCrossings());
});

const MemberCell objectInStranger("object.in.single.interface_missing", [](Bridge bridge) {
  const id stranger = strangerOf([WRTTestInterfaceBridge class]);
  EXPECT_FAILS(kNoInterface, [bridge inInterfaceWithArg:stranger error:&failure]);
  EXPECT_FAILS(kNoInterface, [bridge inRtcWithArg:stranger error:&failure]);
  EXPECT_EQ(Crossings{}, takeCrossings()) << "the call is not made";
});

const MemberCell objectOut("object.out.single.normal", [](Bridge bridge) {
  id interface = nil, object = nil;
  [bridge outInterfaceWithArg:&interface error:nullptr];
  EXPECT_EQ([WRTTestInterfaceBridge class], [interface class]);
  [bridge outRtcWithArg:&object error:nullptr];
  EXPECT_EQ([WRTTestClassBridge class], [object class]);
  interface = [bridge returnInterfaceWithError:nullptr];
  EXPECT_EQ([WRTTestInterfaceBridge class], [interface class]);
  EXPECT_EQ([WRTTestClassBridge class], [[bridge returnRtcWithError:nullptr] class]);
});

// A returned interface alone is tested for null; everything else lets `bridgeTransfer:` complain.
const MemberCell objectOutNull("object.out.single.null", [](Bridge bridge) {
  script().nullObjects = true;
  EXPECT_EQ(nil, [bridge returnInterfaceWithError:nullptr]);
  EXPECT_TRUE(logRecords().empty());
  id interface = bridge, object = bridge;
  NSError *error = staleError();
  [bridge outInterfaceWithArg:&interface error:&error];
  [bridge outRtcWithArg:&object error:nullptr];
  EXPECT_EQ(nil, [bridge returnRtcWithError:nullptr]);
  EXPECT_EQ(nil, interface);
  EXPECT_EQ(nil, object);
  EXPECT_EQ(nil, error) << "null is no failure";
  EXPECT_EQ(3u, logRecords().size());
});

const char *const kCleanups = "WRTTaskMemAlloc WRTIUnknownRelease WRTIUnknownRelease "
                              "WRTTaskMemFree WRTIUnknownRelease";

const MemberCell objectArrayIn("object.in.array.normal", [](Bridge bridge) {
  NSArray *objects = @[ newBridge([WRTTestInterfaceBridge class]), bridge ];
  PlatformTrace trace;
  [bridge inInterfaceArrayWithArr:objects error:nullptr];
  EXPECT_EQ(kCleanups, trace.names());
  [bridge inRtcArrayWithArr:objects error:nullptr];
  [bridge inRtcArrayWithArr:@[] error:nullptr];
  EXPECT_EQ((Crossings{"InInterfaceArray [object, object]", "InRtcArray [object, object]",
                       "InRtcArray []"}),
            takeCrossings());
});

const MemberCell objectArrayInFailingElement("object.in.array.failing_element", [](Bridge bridge) {
  const id stranger = strangerOf([WRTTestInterfaceBridge class]);
  NSArray *objects = @[ bridge, bridge, stranger, bridge ];
  PlatformTrace trace;
  EXPECT_FAILS(kNoInterface, [bridge inInterfaceArrayWithArr:objects error:&failure]);
  EXPECT_EQ(Crossings{}, takeCrossings()) << "the call is not made";
  EXPECT_EQ(kCleanups, trace.names()) << "the two before it are released";
  EXPECT_EQ(1u, static_cast<ProbeObject *>([stranger inner])->queries.size());
});

const MemberCell objectArrayOut("object.out.array.normal", [](Bridge bridge) {
  expectLeftover({.taskBlocks = 5}); // element blocks are not freed
  NSMutableArray *array = [NSMutableArray arrayWithObject:@"before"];
  [bridge outInterfaceArrayWithArr:array error:nullptr];
  ASSERT_EQ(3u, [array count]);
  EXPECT_EQ([WRTTestInterfaceBridge class], [[array objectAtIndex:0] class]);
  [bridge outRtcArrayWithArr:array error:nullptr];
  ASSERT_EQ(3u, [array count]);
  EXPECT_EQ([WRTTestClassBridge class], [[array objectAtIndex:2] class]);
  NSArray *interfaces = [bridge returnInterfaceArrayWithError:nullptr];
  EXPECT_EQ(3u, [interfaces count]);
  EXPECT_EQ([WRTTestInterfaceBridge class], [[interfaces lastObject] class]);
  script().count = 0;
  [bridge outInterfaceArrayWithArr:array error:nullptr];
  EXPECT_EQ(0u, [array count]) << "emptied";
  EXPECT_EQ(0u, [[bridge returnRtcArrayWithError:nullptr] count]);
});

const MemberCell objectArrayFilled("object.out.array_preallocated.normal", [](Bridge bridge) {
  NSMutableArray *array = [NSMutableArray arrayWithObject:@"before"];
  [bridge outInterfaceArrayPreallocatedWithSize:2 arr:array error:nullptr];
  EXPECT_EQ(2u, [array count]);
  [bridge outRtcArrayPreallocatedWithSize:17 arr:array error:nullptr];
  EXPECT_EQ(3u, [array count]);
  EXPECT_EQ(1u, [[bridge returnInterfaceArrayPreallocatedWithSize:1 error:nullptr] count]);
  EXPECT_EQ(3u, [[bridge returnRtcArrayPreallocatedWithSize:4 error:nullptr] count]);
});

// `NSNull` keeps the place of a null, in both directions.
const MemberCell objectArrayNull("object.all.array.null", [](Bridge bridge) {
  expectLeftover({.taskBlocks = 2}); // element blocks are not freed
  script().nullObjects = true;
  script().count = 2;
  NSArray *const nulls = @[ [NSNull null], [NSNull null] ];
  NSMutableArray *array = [NSMutableArray array];
  [bridge outInterfaceArrayWithArr:array error:nullptr];
  EXPECT_TRUE([array isEqual:nulls]);
  [bridge outRtcArrayPreallocatedWithSize:3 arr:array error:nullptr];
  EXPECT_TRUE([array isEqual:nulls]);
  EXPECT_TRUE([[bridge returnRtcArrayWithError:nullptr] isEqual:nulls]);
  EXPECT_TRUE([[bridge returnInterfaceArrayPreallocatedWithSize:2 error:nullptr] isEqual:nulls]);

  takeCrossings();
  NSArray *const some = @[ static_cast<id>(bridge), [NSNull null], bridge ];
  [bridge inInterfaceArrayWithArr:some error:nullptr];
  [bridge inRtcArrayWithArr:[OddArray arrayWithCount:1] error:nullptr];
  EXPECT_EQ((Crossings{"InInterfaceArray [object, null, object]", "InRtcArray [null]"}),
            takeCrossings());
});

const MemberCell arraysTooLarge("object.all.array.no_memory", [](Bridge bridge) {
  NSMutableArray *array = [NSMutableArray arrayWithObject:@"before"];
  const std::function<void(int, NSError **)> calls[] = {
      [&](int size, auto error) {
        [bridge inStringArrayWithArr:[OddArray arrayWithCount:size] error:error];
      },
      [&](int size, auto error) {
        [bridge outStringArrayPreallocatedWithSize:size arr:array error:error];
      },
      [&](int size, auto error) {
        EXPECT_EQ(nil, [bridge returnRtcArrayPreallocatedWithSize:size error:error]);
      }};
  for (const auto &call : calls) {
    failNext(Lack::TaskMemory);
    EXPECT_FAILS(status::kOutOfMemory, call(1, &failure));
    for (const int size : {-1, 0x10000000}) {
      PlatformTrace trace;
      EXPECT_FAILS(kFailure, call(size, &failure));
      EXPECT_EQ("WRTIUnknownRelease", trace.names()) << "nothing was allocated";
    }
  }
  EXPECT_EQ("before", joined(array));
  EXPECT_EQ(Crossings{}, takeCrossings()) << "no call is made";
});

} // namespace

} // namespace wrt::test
