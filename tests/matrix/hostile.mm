// Components that misbehave.

#include "tests/component/HostileObject.h"
#include "tests/matrix/Fixture.h"

namespace wrt::test {

namespace {

WRTTestClassBridge *hostileBridge() {
  return [WRTTestClassBridge bridgeTransfer:implement::make<HostileObject>().detach()->identity()];
}

const MemberCell oddSuccesses("hostile.return.any.odd_successes", [] {
  WRTTestClassBridge *bridge = hostileBridge();
  NSError *error = staleError();
  [bridge voidFunctionWithError:&error];
  EXPECT_EQ(nil, error) << "a code other than zero";
  EXPECT_EQ(5, [bridge returnPrimitiveWithError:&error]);
  EXPECT_EQ(nil, [bridge returnInterfaceWithError:nullptr]) << "nothing is written";
  EXPECT_EQ(nil, [bridge returnRtcWithError:nullptr]);
  EXPECT_EQ(0u, [[bridge returnStringWithError:nullptr] length]);
  NSArray *array = [bridge returnStringArrayWithError:nullptr];
  EXPECT_NE(nil, array);
  EXPECT_EQ(0u, [array count]);
});

const MemberCell lyingCounts("hostile.out.array.lying_counts", [] {
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
});

// Every negative number is a failure, and what stands in the out-values then is nobody's.
const MemberCell wildStatuses("hostile.all.any.wild_statuses", [](Bridge bridge) {
  NSString *text = @"before";
  id interface = bridge, object = bridge;
  NSMutableArray *array = [NSMutableArray arrayWithObject:@"before"];
  const std::function<void(NSError **)> calls[] = {
      [&](auto error) { [bridge voidFunctionWithError:error]; },
      [&](auto error) { [bridge inStringWithArg:@"text" error:error]; },
      [&](auto error) { [bridge inStringArrayWithArr:@[ @"a", @"b" ] error:error]; },
      [&](auto error) { [bridge inInterfaceArrayWithArr:@[ bridge, bridge ] error:error]; },
      [&](auto error) { [bridge outStringWithArg:&text error:error]; },
      [&](auto error) { [bridge outInterfaceWithArg:&interface error:error]; },
      [&](auto error) { [bridge outRtcWithArg:&object error:error]; },
      [&](auto error) { [bridge outStringArrayWithArr:array error:error]; },
      [&](auto error) { [bridge outRtcArrayWithArr:array error:error]; },
      [&](auto error) { [bridge outStringArrayPreallocatedWithSize:3 arr:array error:error]; },
      [&](auto error) { [bridge outRtcArrayPreallocatedWithSize:2 arr:array error:error]; },
      [&](auto error) { EXPECT_EQ(0, [bridge returnPrimitiveWithError:error]); },
      [&](auto error) { EXPECT_EQ(0, [bridge returnStructWithError:error].x); },
      [&](auto error) { EXPECT_EQ(nil, [bridge returnInterfaceWithError:error]); },
      [&](auto error) { EXPECT_EQ(nil, [bridge returnRtcWithError:error]); },
      [&](auto error) { EXPECT_EQ(nil, [bridge returnStringWithError:error]); },
      [&](auto error) { EXPECT_EQ(nil, [bridge returnInterfaceArrayWithError:error]); },
      [&](auto error) { EXPECT_EQ(nil, [bridge returnStringArrayWithError:error]); },
      [&](auto error) {
        EXPECT_EQ(nil, [bridge returnStringArrayPreallocatedWithSize:2 error:error]);
        EXPECT_EQ(nil, [bridge returnRtcArrayPreallocatedWithSize:4 error:error]);
      }};
  script().poisons = true;
  for (HRESULT status : {INT32_MIN, INT32_MIN + 1, -1, static_cast<int32_t>(0xCCCCCCCC)}) {
    script().status = status;
    for (const auto &call : calls) {
      NSError *error = staleError();
      call(&error);
      EXPECT_EQ(status, [error code]) << &call - calls;
      call(nullptr);
    }
  }
  EXPECT_TRUE([text isEqual:@"before"]);
  EXPECT_TRUE(interface == bridge && object == bridge);
  EXPECT_EQ("before", joined(array));
});

// Every unit arrives, whatever it is, in every place that a string has.
const MemberCell oddStrings("hostile.all.strings.odd", [](Bridge bridge) {
  for (const std::u16string &units : std::initializer_list<std::u16string>{{0},
                                                                           {'a', 0, 'b', 0},
                                                                           {0xD800},
                                                                           {0xDFFF, 0xD800},
                                                                           {0xFEFF, 'a'},
                                                                           {0xFFFF, 0xD83D, 'x'}}) {
    expectLeftover({.strings = 1}); // the result
    script().string = units;
    NSString *const text = [bridge returnStringWithError:nullptr];
    std::u16string back([text length], u' ');
    [text getCharacters:reinterpret_cast<unichar *>(back.data())];
    EXPECT_EQ(units, back);
    takeCrossings();
    [bridge inStringWithArg:text error:nullptr];
    [bridge inStringArrayWithArr:[NSArray arrayWithObjects:text, text, nil] error:nullptr];
    const std::string narrowed = "\"" + narrow(units) + "\"";
    EXPECT_EQ(
        (Crossings{"InString " + narrowed, "InStringArray [" + narrowed + ", " + narrowed + "]"}),
        takeCrossings());
  }
});

// A component that calls back, takes the bridge away or changes arrays while it is called.
const MemberCell meddling("hostile.all.any.meddling", [] {
  WRTTestClassBridge *bridge =
      [[WRTTestClassBridge alloc] initWithInner:implement::make<TestObject>().detach()->identity()];
  NSMutableArray *array = [NSMutableArray arrayWithObjects:bridge, bridge, nil];
  NSError *error = nil;
  expectLeftover({.taskBlocks = 9}); // of the arrays that are handed out
  const std::function<void()> acts[] = {
      [&] {
        [bridge inStringWithArg:@"again" error:nullptr];
        [bridge outStringArrayWithArr:[NSMutableArray array] error:nullptr];
      },
      [&] { [array removeAllObjects]; },
      [&] { [array addObject:@"more"]; },
  };
  for (const auto &act : acts) {
    script().meddle = act;
    [bridge inInterfaceArrayWithArr:array error:&error];
    EXPECT_EQ(nil, error);
    script().meddle = act;
    [bridge outStringArrayWithArr:array error:&error];
    EXPECT_EQ("0 1 2", joined(array));
    script().meddle = act;
    EXPECT_EQ(3u, [[bridge returnRtcArrayWithError:&error] count]);
    [array setArray:@[ bridge, bridge ]];
  }
  [array removeAllObjects];
  script().meddle = [&] {
    [bridge release];
    bridge = nil;
  };
  [bridge inStringWithArg:@"last" error:&error];
  EXPECT_EQ(nil, error) << "the call holds the object";
  EXPECT_EQ(nil, bridge);
  [bridge release];
});

} // namespace

} // namespace wrt::test
