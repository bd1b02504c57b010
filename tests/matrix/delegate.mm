// Blocks as delegates: invoked never, once, often, later, and from other threads.

#include "platform/linux/implement/StringHolder.h"
#include "tests/matrix/Fixture.h"
#include "tests/support/Thread.h"

#import <objc/runtime.h>

#include <cstring>
#include <dlfcn.h>

namespace wrt::test {

namespace {

using Handler = HRESULT (^)(int, NSString *, id<WRTTestInterfaceBridge>, WRTTestClassBridge *);

const Cell delegateArguments("delegate.in.block.normal", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    __block int calls = 0;
    [bridge
        inDelegateWithArg:^HRESULT(int x, NSString *s, id<WRTTestInterfaceBridge> i,
                                   WRTTestClassBridge *c) {
          EXPECT_EQ(0, x);
          EXPECT_TRUE([s isEqual:@"text"]);
          EXPECT_EQ([WRTTestInterfaceBridge class], [static_cast<id>(i) class]);
          EXPECT_EQ([WRTTestClassBridge class], [c class]);
          EXPECT_EQ([static_cast<id>(bridge) inner], [c inner]);
          ++calls;
          return 0x1234;
        }
                    error:nullptr];
    EXPECT_EQ(1, calls);
    EXPECT_EQ((Crossings{"InDelegate", "Invoke 00001234"}), takeCrossings());
  });
});

const Cell delegateNullArguments("delegate.in.block.null_arguments", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    clearLog();
    script().nullObjects = true;
    [bridge
        inDelegateWithArg:^HRESULT(int, NSString *, id<WRTTestInterfaceBridge> i,
                                   WRTTestClassBridge *c) {
          EXPECT_EQ(nil, i);
          EXPECT_EQ(nil, c);
          return kFailure;
        }
                    error:nullptr];
    EXPECT_EQ((Crossings{"InDelegate", "Invoke 80070057"}), takeCrossings());
    ASSERT_EQ(2u, logRecords().size());
    const char *const classes[] = {"WRTTestInterfaceBridge", "WRTTestClassBridge"}; // in order
    for (int i = 0; i < 2; ++i)
      EXPECT_EQ(
          (LogRecord{4, "+[WRTUnknownBridge bridge:]", "",
                     std::string("+[") + classes[i] + " bridge:] cannot bridge nil inner object!"}),
          logRecords()[static_cast<size_t>(i)]);
  });
});

const Cell delegateOften("delegate.in.block.invoked_often", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    for (int invocations : {0, 1, 100}) {
      script().invocations = invocations;
      __block int calls = 0;
      [bridge
          inDelegateWithArg:^HRESULT(int x, NSString *, id, WRTTestClassBridge *) {
            EXPECT_EQ(calls, x);
            ++calls;
            return 0;
          }
                      error:nullptr];
      EXPECT_EQ(invocations, calls);
    }
  });
});

const Cell delegateCleanups("delegate.in.block.cleanups", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    script().invocations = 0;
    for (HRESULT status : {HRESULT{0}, kFailure}) {
      script().status = status;
      NSError *error = nil;
      PlatformTrace trace;
      [bridge
          inDelegateWithArg:^HRESULT(int, NSString *, id, WRTTestClassBridge *) {
            return 0;
          }
                      error:&error];
      EXPECT_EQ(status, [error code]);
      EXPECT_EQ("WRTIUnknownRelease WRTIUnknownRelease", trace.names())
          << "the delegate, then the interface";
    }
  });
});

/// Whether the block that became a test delegate last was on the heap.
bool madeOnHeap = false;

/// Tells when the last reference to it goes.
int tokensDeallocated = 0;

} // namespace

} // namespace wrt::test

// Stands in front of the platform's.
extern "C" void *WRTTestDelegateFromBlock(id block) {
  static auto *forward = reinterpret_cast<decltype(&WRTTestDelegateFromBlock)>(
      dlsym(RTLD_NEXT, "WRTTestDelegateFromBlock"));
  wrt::test::madeOnHeap = strstr(object_getClassName(block), "Malloc") != nullptr;
  return forward(block);
}

@interface LifetimeToken : NSObject
@end

@implementation LifetimeToken
- (void)dealloc {
  ++wrt::test::tokensDeallocated;
  [super dealloc];
}
@end

namespace wrt::test {

namespace {

/// Has the component keep a delegate that calls `body` as long as a token lives that its block
/// owns.
void keepDelegate(id<WRTTestInterfaceBridge> bridge, HRESULT (^body)(int x, id i, id c)) {
  tokensDeallocated = 0;
  script().keepsDelegate = true;
  script().invocations = 0;
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  LifetimeToken *token = [[[LifetimeToken alloc] init] autorelease];
  [bridge
      inDelegateWithArg:^HRESULT(int x, NSString *, id i, WRTTestClassBridge *c) {
        return [token self] ? body(x, i, c) : -1;
      }
                  error:nullptr];
  [pool release];
}

// The delegate that the component keeps keeps the caller's block; both go with its last reference.
const Cell delegateOutlivesMember("delegate.in.block.outlives_member", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    keepDelegate(bridge, ^HRESULT(int x, id, id) {
      return x;
    });
    EXPECT_EQ(0, tokensDeallocated);
    const implement::StringHolder string(u"text");
    PlatformTrace trace;
    EXPECT_EQ(7, keptDelegate()->Invoke(7, string.get(), nullptr, nullptr));
    EXPECT_EQ("WRTHSTRINGToCFString", trace.names()) << "the string stays the component's";
    EXPECT_TRUE(madeOnHeap) << "the factory gets a copy";
    dropKeptDelegate();
    EXPECT_EQ(1, tokensDeallocated);
  });
});

// What runs stays until it has run, even if it makes the component drop the delegate.
const Cell delegateDroppedByItself("delegate.in.block.dropped_by_itself", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    keepDelegate(bridge, ^HRESULT(int x, id, id) {
      dropKeptDelegate();
      EXPECT_EQ(0, tokensDeallocated);
      return x;
    });
    abi::TestDelegate *const last = keptDelegate().get();
    EXPECT_EQ(7, last->Invoke(7, nullptr, nullptr, nullptr));
    EXPECT_EQ(1, tokensDeallocated);
  });
});

const Cell delegateOnThreads("delegate.in.block.other_threads", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    auto calls = std::make_shared<std::atomic<int>>(0);
    std::atomic<int> *counter = calls.get();
    keepDelegate(bridge, ^HRESULT(int, id i, id c) {
      *counter += [i inner] == [c inner] ? 1 : 0;
      return 0;
    });
    const auto object = implement::make<TestObject>();
    std::vector<Thread> threads;
    for (int i = 0; i < 4; ++i) {
      // Each thread has a reference of its own; the last to end frees the block.
      threads.emplace_back([delegate = keptDelegate(), &object] {
        for (int call = 0; call < 250; ++call)
          delegate->Invoke(call, nullptr, object.get(), object.get());
      });
    }
    dropKeptDelegate();
    for (Thread &thread : threads)
      thread.join();
    EXPECT_EQ(1000, *calls);
    EXPECT_EQ(1, tokensDeallocated);
  });
});

const Cell delegateNilBlock("delegate.in.block.nil", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    script().invocations = 0;
    NSError *error = staleError();
    Handler none = nil;
    [bridge inDelegateWithArg:none error:&error];
    EXPECT_EQ(nil, error);
    EXPECT_EQ(Crossings{"InDelegate"}, takeCrossings()) << "a delegate is built all the same";
    failNext(Lack::Object);
    [bridge inDelegateWithArg:none error:&error];
    EXPECT_EQ(nil, error);
    EXPECT_EQ(Crossings{"InDelegate"}, takeCrossings()) << "or none, if there is no memory";
  });
});

const Cell delegateReturningString("delegate.in.block_returning_string.normal", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    [bridge
        inDelegateReturnStringWithArg:^HRESULT(NSString **result) {
          EXPECT_EQ(nil, *result) << "starts as nil";
          *result = @"answer";
          return 1;
        }
                                error:nullptr];
    [bridge
        inDelegateReturnStringWithArg:^HRESULT(NSString **) {
          return 2;
        }
                                error:nullptr];
    [bridge
        inDelegateReturnStringWithArg:^HRESULT(NSString **result) {
          *result = @"ignored";
          return kFailure;
        }
                                error:nullptr];
    EXPECT_EQ((Crossings{"InDelegateReturnString 00000001 \"answer\"",
                         "InDelegateReturnString 00000002 untouched",
                         "InDelegateReturnString 80070057 untouched"}),
              takeCrossings());
  });
});

const Cell delegateReturningInterface("delegate.in.block_returning_interface.normal", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    [bridge
        inDelegateReturnInterfaceWithArg:^HRESULT(id<WRTTestInterfaceBridge> *result) {
          *result = bridge;
          return 1;
        }
                                   error:nullptr];
    [bridge
        inDelegateReturnInterfaceWithArg:^HRESULT(id<WRTTestInterfaceBridge> *) {
          return 2;
        }
                                   error:nullptr];
    [bridge
        inDelegateReturnInterfaceWithArg:^HRESULT(id<WRTTestInterfaceBridge> *result) {
          *result = bridge;
          return kFailure;
        }
                                   error:nullptr];
    EXPECT_EQ((Crossings{"InDelegateReturnInterface 00000001 object",
                         "InDelegateReturnInterface 00000002 untouched",
                         "InDelegateReturnInterface 80070057 untouched"}),
              takeCrossings());
  });
});

const Cell delegateReturningStranger("delegate.in.block_returning_interface.interface_missing", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    ProbeObject &object = lasting<ProbeObject>();
    object.queryStatus = kNoInterface;
    WRTTestInterfaceBridge *stranger = [WRTTestInterfaceBridge bridge:&object];
    clearLog();
    [bridge
        inDelegateReturnInterfaceWithArg:^HRESULT(id<WRTTestInterfaceBridge> *result) {
          *result = stranger;
          return 3;
        }
                                   error:nullptr];
    EXPECT_EQ(Crossings{"InDelegateReturnInterface 00000003 null"}, takeCrossings())
        << "the status is unchanged";
    const std::string type = [NSStringFromClass([static_cast<id>(bridge) class]) UTF8String];
    ASSERT_EQ(2u, logRecords().size()) << "the query's own message comes first";
    EXPECT_EQ((LogRecord{4, "-[" + type + " inDelegateReturnInterfaceWithArg:error:]_block_invoke",
                         "", "Failed to get delegate interface pointer for .TestInterface**"}),
              logRecords()[1]);
    clearCrossings();
  });
});

} // namespace

} // namespace wrt::test
