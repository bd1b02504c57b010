// Interfaces and runtime classes, single and in arrays.

#include "tests/matrix/Fixture.h"

namespace wrt::test {

namespace {

/// An object that lacks the test interface, and its bridge.
struct Stranger {
  ProbeObject &object = lasting<ProbeObject>();
  WRTTestInterfaceBridge *bridge = [WRTTestInterfaceBridge bridge:&object];

  Stranger() { object.queryStatus = kNoInterface; }
};

const Cell objectIn("object.in.single.normal", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    WRTTestInterfaceBridge *interface = newBridge([WRTTestInterfaceBridge class]);
    WRTTestClassBridge *object = newBridge([WRTTestClassBridge class]);
    [bridge inInterfaceWithArg:interface error:nullptr];
    [bridge inInterfaceWithArg:static_cast<id>(object) error:nullptr];
    [bridge inRtcWithArg:object error:nullptr];
    [bridge inRtcWithArg:static_cast<id>(interface) error:nullptr];
    NSError *error = staleError();
    [bridge inInterfaceWithArg:nil error:&error];
    EXPECT_EQ(nil, error);
    [bridge inRtcWithArg:nil error:nullptr];
    EXPECT_EQ((Crossings{"InInterface object", "InInterface object", "InRtc object", "InRtc object",
                         "InInterface null", "InRtc null"}),
              takeCrossings());
  });
});

const Cell objectInStranger("object.in.single.interface_missing", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    Stranger stranger;
    NSError *error = nil;
    [bridge inInterfaceWithArg:static_cast<id>(stranger.bridge) error:&error];
    EXPECT_EQ(kNoInterface, [error code]);
    error = nil;
    [bridge inRtcWithArg:static_cast<id>(stranger.bridge) error:&error];
    EXPECT_EQ(kNoInterface, [error code]);
    EXPECT_EQ(Crossings{}, takeCrossings()) << "the call is not made";
  });
});

const Cell objectOut("object.out.single.normal", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    WRTTestInterfaceBridge *interface = nil;
    [bridge outInterfaceWithArg:&interface error:nullptr];
    EXPECT_EQ([WRTTestInterfaceBridge class], [interface class]);
    WRTTestClassBridge *object = nil;
    [bridge outRtcWithArg:&object error:nullptr];
    EXPECT_EQ([WRTTestClassBridge class], [object class]);
    EXPECT_EQ([WRTTestInterfaceBridge class],
              [static_cast<id>([bridge returnInterfaceWithError:nullptr]) class]);
    EXPECT_EQ([WRTTestClassBridge class], [[bridge returnRtcWithError:nullptr] class]);
  });
});

// A returned interface alone is tested for null; everything else lets `bridgeTransfer:` complain.
const Cell objectOutNull("object.out.single.null", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    clearLog();
    script().nullObjects = true;
    EXPECT_EQ(nil, [bridge returnInterfaceWithError:nullptr]);
    EXPECT_TRUE(logRecords().empty());
    WRTTestInterfaceBridge *interface = newBridge([WRTTestInterfaceBridge class]);
    WRTTestClassBridge *object = newBridge([WRTTestClassBridge class]);
    NSError *error = staleError();
    [bridge outInterfaceWithArg:&interface error:&error];
    [bridge outRtcWithArg:&object error:nullptr];
    EXPECT_EQ(nil, [bridge returnRtcWithError:nullptr]);
    EXPECT_EQ(nil, interface);
    EXPECT_EQ(nil, object);
    EXPECT_EQ(nil, error) << "null is no failure";
    EXPECT_EQ(3u, logRecords().size());
  });
});

const Cell objectOutFailing("object.out.single.failing", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    script().status = kFailure;
    script().poisons = true;
    WRTTestInterfaceBridge *const before = newBridge([WRTTestInterfaceBridge class]);
    WRTTestInterfaceBridge *interface = before;
    NSError *error = nil;
    [bridge outInterfaceWithArg:&interface error:&error];
    EXPECT_EQ(before, interface);
    EXPECT_EQ(kFailure, [error code]);
    EXPECT_EQ(nil, [bridge returnInterfaceWithError:nullptr]);
    EXPECT_EQ(nil, [bridge returnRtcWithError:nullptr]);
  });
});

const Cell objectArrayIn("object.in.array.normal", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    NSArray *objects = @[ newBridge([WRTTestInterfaceBridge class]), bridge ];
    PlatformTrace trace;
    [bridge inInterfaceArrayWithArr:objects error:nullptr];
    EXPECT_EQ("WRTTaskMemAlloc WRTIUnknownRelease WRTIUnknownRelease WRTTaskMemFree "
              "WRTIUnknownRelease",
              trace.names());
    [bridge inRtcArrayWithArr:objects error:nullptr];
    [bridge inRtcArrayWithArr:@[] error:nullptr];
    EXPECT_EQ((Crossings{"InInterfaceArray [object, object]", "InRtcArray [object, object]",
                         "InRtcArray []"}),
              takeCrossings());
  });
});

const Cell objectArrayInFailingElement("object.in.array.failing_element", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    Stranger stranger;
    NSArray *objects = @[ bridge, bridge, static_cast<id>(stranger.bridge), bridge ];
    NSError *error = nil;
    PlatformTrace trace;
    [bridge inInterfaceArrayWithArr:objects error:&error];
    EXPECT_EQ(kNoInterface, [error code]);
    EXPECT_EQ(Crossings{}, takeCrossings()) << "the call is not made";
    EXPECT_EQ("WRTTaskMemAlloc WRTIUnknownRelease WRTIUnknownRelease WRTTaskMemFree "
              "WRTIUnknownRelease",
              trace.names())
        << "the two before it are released";
    EXPECT_EQ(1u, stranger.object.queries.size());
  });
});

const Cell objectArrayOut("object.out.array.normal", [] {
  expectLeftover({.taskBlocks = 10}); // element blocks are not freed
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
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
});

const Cell objectArrayPreallocated("object.out.array_preallocated.normal", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    NSMutableArray *array = [NSMutableArray arrayWithObject:@"before"];
    [bridge outInterfaceArrayPreallocatedWithSize:2 arr:array error:nullptr];
    EXPECT_EQ(2u, [array count]);
    [bridge outRtcArrayPreallocatedWithSize:17 arr:array error:nullptr];
    EXPECT_EQ(3u, [array count]);
    EXPECT_EQ(1u, [[bridge returnInterfaceArrayPreallocatedWithSize:1 error:nullptr] count]);
    EXPECT_EQ(3u, [[bridge returnRtcArrayPreallocatedWithSize:4 error:nullptr] count]);
    script().status = kFailure;
    [bridge outRtcArrayPreallocatedWithSize:2 arr:array error:nullptr];
    EXPECT_EQ(3u, [array count]) << "a failure leaves the caller's array";
    EXPECT_EQ(nil, [bridge returnRtcArrayPreallocatedWithSize:4 error:nullptr]);
  });
});

// `NSNull` keeps the place of a null, in both directions.
const Cell objectArrayNull("object.all.array.null", [] {
  expectLeftover({.taskBlocks = 4}); // element blocks are not freed
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
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

    clearCrossings();
    NSArray *const some = @[ static_cast<id>(bridge), [NSNull null], bridge ];
    [bridge inInterfaceArrayWithArr:some error:nullptr];
    [bridge inRtcArrayWithArr:[[[OddArray alloc] initWithCount:1] autorelease] error:nullptr];
    EXPECT_EQ((Crossings{"InInterfaceArray [object, null, object]", "InRtcArray [null]"}),
              takeCrossings());
  });
});

const Cell arraysTooLarge("object.all.array.no_memory", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    NSMutableArray *array = [NSMutableArray arrayWithObject:@"before"];
    const auto expectRefused = [&](auto call) {
      NSError *error = nil;
      failNext(Lack::TaskMemory);
      call(1, &error);
      EXPECT_EQ(static_cast<HRESULT>(0x8007000E), [error code]);
      for (const int size : {-1, 0x10000000}) {
        PlatformTrace trace;
        call(size, &error);
        EXPECT_EQ(kFailure, [error code]);
        EXPECT_EQ("WRTIUnknownRelease", trace.names()) << "nothing was allocated";
      }
    };
    expectRefused([&](int size, NSError **error) {
      [bridge inStringArrayWithArr:[[[OddArray alloc] initWithCount:size] autorelease] error:error];
    });
    expectRefused([&](int size, NSError **error) {
      [bridge outStringArrayPreallocatedWithSize:size arr:array error:error];
    });
    expectRefused([&](int size, NSError **error) {
      EXPECT_EQ(nil, [bridge returnRtcArrayPreallocatedWithSize:size error:error]);
    });
    EXPECT_EQ("before", joined(array));
    EXPECT_EQ(Crossings{}, takeCrossings()) << "no call is made";
  });
});

} // namespace

} // namespace wrt::test
