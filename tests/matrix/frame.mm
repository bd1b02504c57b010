// The call frame, whatever crosses: what is kept how long, and when the caller is told. That every
// member takes it, in every outcome, is what exhaustive_tests sees.

#include "platform/linux/objc/BlockLayout.h"
#include "tests/matrix/Fixture.h"
#include "tests/support/Thread.h"

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

const MemberCell manyThreads("frame.all.strings.many_threads", [] {
  Bridge bridge = newBridge([WRTTestInterfaceBridge class]);
  std::vector<Thread> threads;
  for (int i = 0; i < 4; ++i) {
    threads.emplace_back([bridge] {
      @autoreleasepool {
        for (int call = 0; call < 50; ++call) {
          [bridge inStringArrayWithArr:[NSArray arrayWithObjects:@"a", @"b", nil] error:nullptr];
          EXPECT_EQ(42, [bridge returnPrimitiveWithError:nullptr]);
        }
      }
    });
  }
  for (Thread &thread : threads)
    thread.join();
});

// Arguments are retained before the receiver is asked; only then may anything else let go of them.
const MemberCell retainedFirst("frame.all.arguments.retained_first", [] {
  script().invocations = 0;
  Bridge bridge = newBridge([AccessProbe class]);
  const auto expectRetained = [](id argument, auto references, auto call) {
    const auto before = references();
    auto during = before;
    onAccess = [&](NSError **) {
      during = references();
      return nullptr;
    };
    call();
    onAccess = nullptr;
    EXPECT_GT(during, before) << [[argument description] UTF8String];
    EXPECT_EQ(before, references());
  };
  const auto expectObjectRetained = [&](id argument, auto call) {
    expectRetained(argument, [=] { return [argument retainCount]; }, [=] { call(argument); });
  };
  expectObjectRetained([NSMutableString stringWithString:@"text"],
                       [=](id text) { [bridge inStringWithArg:text error:nullptr]; });
  expectObjectRetained(newBridge([WRTTestInterfaceBridge class]),
                       [=](id object) { [bridge inInterfaceWithArg:object error:nullptr]; });
  expectObjectRetained([NSMutableArray array],
                       [=](id array) { [bridge inStringArrayWithArr:array error:nullptr]; });
  HRESULT (^const block)(int, NSString *, Bridge, WRTTestClassBridge *) =
      [[^HRESULT(int, NSString *, id, WRTTestClassBridge *) {
        return [static_cast<id>(bridge) self] ? 0 : 1; // captures, so as to be on the heap
      } copy] autorelease];
  const auto *layout = reinterpret_cast<const block::Block *>(block);
  expectRetained(block, [=] { return layout->references; }, [=] { handIn(bridge, block); });
});

const MemberCell errorLast("frame.all.error.last", [] {
  script().status = kFailure;
  Bridge bridge = newBridge([AccessProbe class]);
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
