// Blocks as delegates: invoked never, once, often, later, and from other threads.

#include "platform/linux/implement/StringHolder.h"
#include "tests/matrix/Fixture.h"
#include "tests/support/Thread.h"

#import <objc/runtime.h>

#include <cstring>
#include <dlfcn.h>

namespace {

/// Whether the block that became a test delegate last was on the heap.
bool madeOnHeap = false;

} // namespace

// Stands in front of the platform's.
extern "C" void *WRTTestDelegateFromBlock(id block) {
  static auto *forward = reinterpret_cast<decltype(&WRTTestDelegateFromBlock)>(
      dlsym(RTLD_NEXT, "WRTTestDelegateFromBlock"));
  madeOnHeap = strstr(object_getClassName(block), "Malloc") != nullptr;
  return forward(block);
}

namespace wrt::test {

namespace {

const MemberCell delegateArguments("delegate.in.block.normal", [](Bridge bridge) {
  for (size_t invocations : {0, 1, 100}) {
    script().invocations = static_cast<int>(invocations);
    __block int calls = 0;
    handIn(bridge, ^HRESULT(int x, NSString *s, Bridge i, WRTTestClassBridge *c) {
      EXPECT_EQ(calls++, x);
      EXPECT_TRUE([s isEqual:@"text"]);
      EXPECT_EQ([WRTTestInterfaceBridge class], [static_cast<id>(i) class]);
      EXPECT_EQ([WRTTestClassBridge class], [c class]);
      EXPECT_EQ([static_cast<id>(bridge) inner], [c inner]);
      return 0x1234;
    });
    Crossings expected(invocations, "Invoke 00001234");
    expected.insert(expected.begin(), "InDelegate");
    EXPECT_EQ(expected, takeCrossings());
  }
});

const MemberCell delegateNullArguments("delegate.in.block.null_arguments", [](Bridge bridge) {
  script().nullObjects = true;
  handIn(bridge, ^HRESULT(int, NSString *, Bridge i, WRTTestClassBridge *c) {
    EXPECT_EQ(nil, i);
    EXPECT_EQ(nil, c);
    return kFailure;
  });
  EXPECT_EQ((Crossings{"InDelegate", "Invoke 80070057"}), takeCrossings());
  const auto nullOf = [](const std::string &type) {
    return LogRecord{4, "+[WRTUnknownBridge bridge:]", "",
                     "+[" + type + " bridge:] cannot bridge nil inner object!"};
  };
  EXPECT_EQ((std::vector{nullOf("WRTTestInterfaceBridge"), nullOf("WRTTestClassBridge")}),
            logRecords());
});

const MemberCell delegateCleanups("delegate.in.block.cleanups", [](Bridge bridge) {
  script().invocations = 0;
  for (HRESULT status : {HRESULT{0}, kFailure}) {
    script().status = status;
    NSError *error = nil;
    PlatformTrace trace;
    const auto never = ^HRESULT(int, NSString *, id, WRTTestClassBridge *) {
      return 0;
    };
    handIn(bridge, never, &error);
    EXPECT_EQ(status, [error code]);
    EXPECT_EQ("WRTIUnknownRelease WRTIUnknownRelease", trace.names())
        << "the delegate, then the interface";
  }
});

/// Lives as long as the block of the delegate that was kept last.
std::weak_ptr<int> life;

/// Has the component keep a delegate that calls `body`.
void keepDelegate(Bridge bridge, HRESULT (^body)(int x, id i, id c)) {
  script().keepsDelegate = true;
  script().invocations = 0;
  @autoreleasepool {
    const auto owned = std::make_shared<int>();
    life = owned;
    handIn(bridge, ^HRESULT(int x, NSString *, id i, WRTTestClassBridge *c) {
      return owned ? body(x, i, c) : -1;
    });
  }
}

// The delegate that the component keeps keeps the caller's block; both go with its last reference.
const MemberCell delegateOutlivesMember("delegate.in.block.outlives_member", [](Bridge bridge) {
  keepDelegate(bridge, ^HRESULT(int x, id, id) {
    return x;
  });
  EXPECT_FALSE(life.expired());
  const implement::StringHolder string(u"text");
  PlatformTrace trace;
  EXPECT_EQ(7, keptDelegate()->Invoke(7, string.get(), nullptr, nullptr));
  EXPECT_EQ("WRTHSTRINGToCFString", trace.names()) << "the string stays the component's";
  EXPECT_TRUE(madeOnHeap) << "the factory gets a copy";
  dropKeptDelegate();
  EXPECT_TRUE(life.expired());
});

// What runs stays until it has run, even if it makes the component drop the delegate.
const MemberCell delegateDroppedByItself("delegate.in.block.dropped_by_itself", [](Bridge bridge) {
  keepDelegate(bridge, ^HRESULT(int x, id, id) {
    dropKeptDelegate();
    EXPECT_FALSE(life.expired());
    return x;
  });
  abi::TestDelegate *const last = keptDelegate().get();
  EXPECT_EQ(7, last->Invoke(7, nullptr, nullptr, nullptr));
  EXPECT_TRUE(life.expired());
});

// Also when nobody wants it any more: bridge, block and component have let go of it.
const MemberCell delegateOnThreads("delegate.in.block.other_threads", [] {
  const auto calls = std::make_shared<std::atomic<int>>(0);
  @autoreleasepool {
    keepDelegate(newBridge([WRTTestClassBridge class]), ^HRESULT(int x, id i, id c) {
      [static_cast<Bridge>(i) voidFunctionWithError:nullptr];
      *calls += [i inner] == [c inner] && (i == nil) == (x < 0) ? 1 : 1000000;
      return 0;
    });
  }
  const auto object = implement::make<TestObject>();
  std::vector<Thread> threads;
  for (int i = 0; i < 8; ++i) {
    // Each thread has a reference of its own; the last to end frees the block.
    threads.emplace_back([delegate = keptDelegate(), &object] {
      for (int call = 0; call < 100; ++call) {
        delegate->Invoke(call, nullptr, object.get(), object.get());
        delegate->Invoke(INT32_MIN, nullptr, nullptr, nullptr);
      }
    });
  }
  dropKeptDelegate();
  for (Thread &thread : threads)
    thread.join();
  EXPECT_EQ(1600, *calls);
  EXPECT_TRUE(life.expired());
});

const MemberCell delegateNilBlock("delegate.in.block.nil", [](Bridge bridge) {
  script().invocations = 0;
  HRESULT (^const none)(int, NSString *, Bridge, WRTTestClassBridge *) = nil;
  for (bool isMade : {true, false}) {
    if (!isMade)
      failNext(Lack::Object); // no delegate, then
    NSError *error = staleError();
    handIn(bridge, none, &error);
    EXPECT_EQ(nil, error);
    EXPECT_EQ(Crossings{"InDelegate"}, takeCrossings());
  }
});

/// A block that answers `answer`, which crosses as `text`; that answers nothing; and that answers
/// and fails.
template <class Result>
void handInAnswers(Bridge bridge, Result answer, const std::string &member,
                   const std::string &text) {
  for (HRESULT status : {1, 2, kFailure})
    handIn(bridge, ^HRESULT(Result *result) {
      EXPECT_EQ(nil, *result) << "starts as nil";
      if (status != 2)
        *result = answer;
      return status;
    });
  EXPECT_EQ((Crossings{member + " 00000001 " + text, member + " 00000002 untouched",
                       member + " 80070057 untouched"}),
            takeCrossings());
}

const MemberCell delegateReturning("delegate.in.block_returning.normal", [](Bridge bridge) {
  handInAnswers<NSString *>(bridge, @"answer", "InDelegateReturnString", "\"answer\"");
  handInAnswers<Bridge>(bridge, bridge, "InDelegateReturnInterface", "object");
});

const MemberCell
    delegateReturningStranger("delegate.in.block_returning.interface_missing", [](Bridge bridge) {
      const id stranger = strangerOf([WRTTestInterfaceBridge class]);
      handIn(bridge, ^HRESULT(Bridge *result) {
        *result = stranger;
        return 3;
      });
      EXPECT_EQ(Crossings{"InDelegateReturnInterface 00000003 null"}, takeCrossings())
          << "the status is unchanged";
      const std::string type = [NSStringFromClass([static_cast<id>(bridge) class]) UTF8String];
      ASSERT_EQ(2u, logRecords().size()) << "the query's own message comes first";
      EXPECT_EQ(
          (LogRecord{4, "-[" + type + " inDelegateReturnInterfaceWithArg:error:]_block_invoke", "",
                     "Failed to get delegate interface pointer for .TestInterface**"}),
          logRecords()[1]);
    });

} // namespace

} // namespace wrt::test
