// The call frame, whatever crosses: what is kept how long, and when the caller is told. That every
// member takes it, in every outcome, is what exhaustive_tests sees.

#include "platform/linux/objc/BlockLayout.h"
#include "tests/matrix/Fixture.h"
#include "tests/support/Thread.h"

#include <functional>

namespace {

/// What happens when the bridge below is asked for its interface.
std::function<void *(NSError **)> onAccess;

} // namespace

/// A bridge whose accessor does what a test says.
@interface AccessProbe : WRTTestInterfaceBridge
@end
@implementation AccessProbe
- (WRTTestInterface *)_WRTTestInterfaceWithError:(NSError **)error {
  void *interface = onAccess ? onAccess(error) : nullptr;
  return interface ? static_cast<WRTTestInterface *>(interface)
                   : [super _WRTTestInterfaceWithError:error];
}
@end

namespace wrt::test {

namespace {

const Cell manyThreads("frame.all.strings.many_threads", [] {
  resetScript();
  id<WRTTestInterfaceBridge> bridge = newBridge([WRTTestInterfaceBridge class]);
  std::vector<Thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([bridge] {
      NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
      for (int call = 0; call < 50; ++call) {
        [bridge inStringArrayWithArr:[NSArray arrayWithObjects:@"a", @"b", nil] error:nullptr];
        EXPECT_EQ(42, [bridge returnPrimitiveWithError:nullptr]);
      }
      [pool release];
    });
  }
  for (Thread &thread : threads)
    thread.join();
  clearCrossings();
});

const Cell secondInterface("frame.all.second_interface.normal", [] {
  resetScript();
  WRTTestClassBridge *bridge = newBridge([WRTTestClassBridge class]);
  takeCrossings();
  [bridge voidFunctionFromInterface2WithError:nullptr];
  [[WRTTestInterface2Bridge cast:bridge] voidFunctionFromInterface2WithError:nullptr];
  EXPECT_EQ((Crossings{"VoidFunctionFromInterface2", "VoidFunctionFromInterface2"}),
            takeCrossings());
});

// Arguments are retained before the receiver is asked; only then may anything else let go of them.
const Cell retainedFirst("frame.all.arguments.retained_first", [] {
  resetScript();
  script().invocations = 0;
  id<WRTTestInterfaceBridge> bridge = newBridge([AccessProbe class]);
  HRESULT (^block)(int, NSString *, id<WRTTestInterfaceBridge>, WRTTestClassBridge *) =
      [[^HRESULT(int, NSString *, id, WRTTestClassBridge *) {
        return [static_cast<id>(bridge) self] ? 0 : 1; // captures, so as to be on the heap
      } copy] autorelease];
  for (id argument in @[
         [NSMutableString stringWithString:@"text"], newBridge([WRTTestInterfaceBridge class]),
         [NSMutableArray array], static_cast<id>(block)
       ]) {
    const auto *layout = static_cast<const block::Block *>(static_cast<void *>(argument));
    const bool isBlock = argument == static_cast<id>(block);
    const auto references = [&] {
      return isBlock ? static_cast<NSUInteger>(layout->references) : [argument retainCount];
    };
    const NSUInteger before = references();
    NSUInteger during = 0;
    onAccess = [&](NSError **) {
      during = references();
      return nullptr;
    };
    if (isBlock)
      [bridge inDelegateWithArg:argument error:nullptr];
    else if ([argument isKindOfClass:[NSString class]])
      [bridge inStringWithArg:argument error:nullptr];
    else if ([argument isKindOfClass:[NSArray class]])
      [bridge inStringArrayWithArr:argument error:nullptr];
    else
      [bridge inInterfaceWithArg:argument error:nullptr];
    EXPECT_GT(during, before) << [[argument description] UTF8String];
    EXPECT_EQ(before, references());
  }
  onAccess = nullptr;
  clearCrossings();
});

const Cell errorLast("frame.all.error.last", [] {
  resetScript();
  script().status = kFailure;
  id<WRTTestInterfaceBridge> bridge = newBridge([AccessProbe class]);
  NSError *const before = staleError();
  NSError *error = before;
  {
    PlatformTrace trace;
    trace.watch = [&](const PlatformCall &) { EXPECT_EQ(before, error) << "told too early"; };
    [bridge inStringWithArg:@"text" error:&error];
    EXPECT_EQ("WRTHSTRINGRelease WRTIUnknownRelease", trace.names());
  }
  EXPECT_EQ(kFailure, [error code]);
  [bridge voidFunctionWithError:nullptr];
  EXPECT_EQ((Crossings{"InString \"text\"", "VoidFunction"}), takeCrossings())
      << "an error pointer is not needed";

  // An accessor with a pointer and an error: the error counts, the pointer is nobody's.
  ProbeObject &object = lasting<ProbeObject>();
  onAccess = [&](NSError **failure) {
    *failure = staleError();
    return &object;
  };
  PlatformTrace trace;
  error = before;
  [bridge voidFunctionWithError:&error];
  EXPECT_EQ("", trace.names());
  EXPECT_EQ(before, error);
  onAccess = nullptr;
});

} // namespace

} // namespace wrt::test
