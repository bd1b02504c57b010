// Components that misbehave.

#include "tests/component/HostileObject.h"
#include "tests/matrix/Fixture.h"
#include "tests/support/Thread.h"

#include <atomic>

namespace wrt::test {

namespace {

WRTTestClassBridge *hostileBridge() {
  resetScript();
  clearCrossings();
  return [WRTTestClassBridge bridgeTransfer:implement::make<HostileObject>().detach()->identity()];
}

const Cell otherSuccessCodes("hostile.return.any.success_codes", [] {
  WRTTestClassBridge *bridge = hostileBridge();
  NSError *error = staleError();
  [bridge voidFunctionWithError:&error];
  EXPECT_EQ(nil, error);
  EXPECT_EQ(5, [bridge returnPrimitiveWithError:&error]);
});

const Cell nothingWritten("hostile.return.any.nothing_written", [] {
  WRTTestClassBridge *bridge = hostileBridge();
  EXPECT_EQ(nil, [bridge returnInterfaceWithError:nullptr]);
  EXPECT_EQ(nil, [bridge returnRtcWithError:nullptr]);
  EXPECT_EQ(0u, [[bridge returnStringWithError:nullptr] length]);
  NSArray *array = [bridge returnStringArrayWithError:nullptr];
  EXPECT_NE(nil, array);
  EXPECT_EQ(0u, [array count]);
});

const Cell lyingCounts("hostile.out.array.lying_counts", [] {
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
});

using Bridge = id<WRTTestInterfaceBridge>;
using Error = NSError **;

/// Calls members that cross in every way; `failed` looks at each call, which is to have failed.
template <class Failed>
void callInEveryWay(Bridge bridge, Error error, Failed failed) {
  NSString *text = @"before";
  id object = bridge;
  NSMutableArray *array = [NSMutableArray arrayWithObject:@"before"];
  [bridge voidFunctionWithError:error];
  failed();
  [bridge inStringWithArg:@"text" error:error];
  failed();
  [bridge inStringArrayWithArr:@[ @"a", @"b" ] error:error];
  failed();
  [bridge inInterfaceArrayWithArr:@[ bridge, bridge ] error:error];
  failed();
  [bridge outStringWithArg:&text error:error];
  failed();
  [bridge outInterfaceWithArg:&object error:error];
  failed();
  [bridge outRtcArrayWithArr:array error:error];
  failed();
  [bridge outStringArrayPreallocatedWithSize:3 arr:array error:error];
  failed();
  EXPECT_TRUE([text isEqual:@"before"]);
  EXPECT_EQ(bridge, object);
  EXPECT_EQ("before", joined(array));
  EXPECT_EQ(0, [bridge returnStructWithError:error].x);
  failed();
  EXPECT_EQ(nil, [bridge returnRtcWithError:error]);
  failed();
  EXPECT_EQ(nil, [bridge returnInterfaceArrayWithError:error]);
  failed();
  EXPECT_EQ(nil, [bridge returnStringArrayPreallocatedWithSize:2 error:error]);
  failed();
  EXPECT_EQ(nil, [bridge returnStringWithError:error]);
  failed();
}

// Every negative number is a failure, and what stands in the out-values then is nobody's.
const Cell wildStatuses("hostile.all.any.wild_statuses", [] {
  forBothClasses([](Bridge bridge) {
    for (HRESULT status : {INT32_MIN, INT32_MIN + 1, -1, static_cast<int32_t>(0xCCCCCCCC)}) {
      script().status = status;
      script().poisons = true;
      NSError *error = staleError();
      callInEveryWay(bridge, &error, [&] {
        EXPECT_EQ(status, [error code]);
        error = staleError();
      });
      callInEveryWay(bridge, nullptr, [] {});
    }
    clearCrossings();
  });
});

// Every unit arrives, whatever it is, in every place that a string has.
const Cell oddStrings("hostile.all.strings.odd", [] {
  const std::u16string odd[] = {{0},           {'a', 0, 'b', 0},     {0xD800}, {0xDFFF, 0xD800},
                                {0xFEFF, 'a'}, {0xFFFF, 0xD83D, 'x'}};
  expectLeftover({.strings = 2 * static_cast<int>(std::size(odd))}); // of the results
  forBothClasses([&](Bridge bridge) {
    const auto unitsOf = [](NSString *text) {
      std::u16string units([text length], u' ');
      [text getCharacters:reinterpret_cast<unichar *>(units.data())];
      return units;
    };
    for (const std::u16string &units : odd) {
      script().string = units;
      NSString *const text = [bridge returnStringWithError:nullptr];
      EXPECT_EQ(units, unitsOf(text));
      clearCrossings();
      [bridge inStringWithArg:text error:nullptr];
      [bridge inStringArrayWithArr:@[ text, text ] error:nullptr];
      const std::string narrowed = "\"" + narrow(units) + "\"";
      EXPECT_EQ(
          (Crossings{"InString " + narrowed, "InStringArray [" + narrowed + ", " + narrowed + "]"}),
          takeCrossings());
    }
  });
});

// A component that calls back, takes the bridge away or changes arrays while it is called.
const Cell meddling("hostile.all.any.meddling", [] {
  auto object = implement::make<HostileObject>();
  resetScript();
  @autoreleasepool {
    __block WRTTestClassBridge *bridge =
        [[WRTTestClassBridge alloc] initWithInner:implement::ComPtr(object).detach()->identity()];
    __block NSMutableArray *array = [NSMutableArray arrayWithObjects:bridge, bridge, nil];
    NSError *error = nil;
    void (^const callBack)() = ^{
      object->meddle = [] {};
      [bridge inStringWithArg:@"again" error:nullptr];
      [bridge outStringArrayWithArr:[NSMutableArray array] error:nullptr];
    };
    void (^const emptyTheArray)() = ^{
      [array removeAllObjects];
    };
    void (^const fillTheArray)() = ^{
      [array addObject:@"more"];
    };
    expectLeftover({.taskBlocks = 9}); // of the arrays that are handed out
    for (void (^meddle)() : {callBack, emptyTheArray, fillTheArray}) {
      object->meddle = meddle;
      [bridge inInterfaceArrayWithArr:array error:&error];
      EXPECT_EQ(nil, error);
      object->meddle = meddle;
      [bridge outStringArrayWithArr:array error:&error];
      EXPECT_EQ("0 1 2", joined(array));
      object->meddle = meddle;
      EXPECT_EQ(3u, [[bridge returnRtcArrayWithError:&error] count]);
      [array setArray:@[ bridge, bridge ]];
    }
    [array removeAllObjects];
    object->meddle = ^{
      [bridge release];
      bridge = nil;
    };
    [bridge inStringWithArg:@"last" error:&error];
    EXPECT_EQ(nil, error) << "the call holds the object";
    EXPECT_EQ(nil, bridge);
    [bridge release];
    object->meddle = [] {};
  }
  clearCrossings();
});

// A delegate that is invoked when nobody wants it any more: twice at once on each of eight threads.
const Cell lateDelegate("hostile.in.delegate.late", [] {
  std::atomic<int> calls = 0;
  std::atomic<int> *const counter = &calls;
  resetScript();
  script().invocations = 0;
  script().keepsDelegate = true;
  @autoreleasepool {
    Bridge bridge = static_cast<Bridge>(newBridge([WRTTestClassBridge class]));
    [bridge
        inDelegateWithArg:^HRESULT(int, NSString *, id i, WRTTestClassBridge *c) {
          [static_cast<Bridge>(i) voidFunctionWithError:nullptr];
          *counter += i == nil && c == nil ? 1 : 1000;
          return 0;
        }
                    error:nullptr];
  }
  std::vector<Thread> threads;
  for (int i = 0; i < 8; ++i)
    threads.emplace_back([delegate = keptDelegate()] {
      for (int time = 0; time < 2; ++time)
        delegate->Invoke(INT32_MIN, nullptr, nullptr, nullptr);
    });
  dropKeptDelegate();
  for (Thread &thread : threads)
    thread.join();
  EXPECT_EQ(16, calls);
  clearCrossings();
});

} // namespace

} // namespace wrt::test
