// The call frame, whatever crosses: interface missing, failing status, threads, slots, error
// variable.

#include "platform/linux/objc/BlockLayout.h"
#include "tests/matrix/Fixture.h"
#include "tests/support/Thread.h"

#include <WRTBridge.h>

#import <objc/runtime.h>

#include <algorithm>
#include <functional>
#include <utility>

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

/// The selectors that a class answers itself, accessors excluded.
std::vector<SEL> memberSelectors(Class type) {
  std::vector<SEL> selectors;
  unsigned count = 0;
  Method *methods = class_copyMethodList(type, &count);
  for (unsigned i = 0; i < count; ++i) {
    SEL selector = method_getName(methods[i]);
    if (sel_getName(selector)[0] != '_')
      selectors.push_back(selector);
  }
  free(methods);
  return selectors;
}

/// The first letters of a method's argument types, receiver and selector left out: `@` for objects,
/// `?` for blocks, `^` for pointers, and whatever else.
std::string argumentKinds(Method method) {
  std::string kinds;
  int depth = 0;
  bool startsType = true;
  for (const char *type = method_getTypeEncoding(method); *type; ++type) {
    if (isdigit(*type)) {
      startsType = startsType || depth == 0;
    } else {
      if (startsType && depth == 0)
        kinds += type[0] == '@' && type[1] == '?' ? '?' : *type;
      startsType = false;
      depth += (*type == '{') - (*type == '}');
    }
  }
  return kinds.substr(3); // result, receiver, selector
}

/// Calls any member with arguments that suit it: numbers 0, nil objects and pointers to room, and
/// with `error` as its last. Gives the result's first word. Everything that the test members take
/// and return fits integer registers here.
long callMember(id bridge, SEL selector, NSError **error) {
  static long room[4][16];
  HRESULT (^block)() = ^HRESULT {
    return 0;
  };
  Method method = class_getInstanceMethod([bridge class], selector);
  const std::string kinds = argumentKinds(method);
  void *arguments[4] = {};
  for (size_t i = 0; i + 1 < kinds.size(); ++i) {
    room[i][0] = 0;
    arguments[i] = kinds[i] == '^'   ? static_cast<void *>(room[i])
                   : kinds[i] == '?' ? static_cast<void *>(static_cast<id>(block))
                                     : nullptr;
  }
  arguments[kinds.size() - 1] = error;
  using Function = long (*)(id, SEL, void *, void *, void *, void *);
  auto *function =
      reinterpret_cast<Function>(reinterpret_cast<void *>(method_getImplementation(method)));
  const long result =
      function(bridge, selector, arguments[0], arguments[1], arguments[2], arguments[3]);
  return method_getTypeEncoding(method)[0] == 'v'   ? 0
         : method_getTypeEncoding(method)[0] == 'i' ? static_cast<int>(result)
                                                    : result;
}

/// Calls every member of both classes once for each body.
template <class Body>
void forEveryMember(Body body) {
  size_t members = 0;
  for (Class type in
       [NSArray arrayWithObjects:[WRTTestInterfaceBridge class], [WRTTestClassBridge class], nil]) {
    for (SEL selector : memberSelectors(type)) {
      SCOPED_TRACE(sel_getName(selector));
      resetScript();
      clearCrossings();
      body(newBridge(type), selector);
      ++members;
    }
  }
  EXPECT_EQ(44u + 45u, members);
}

void everyMemberFailing() {
  forEveryMember([](id bridge, SEL selector) {
    script().status = kFailure;
    script().invocations = 0;
    NSError *error = nil;
    EXPECT_EQ(0, callMember(bridge, selector, &error));
    EXPECT_EQ(kFailure, [error code]);
    EXPECT_EQ(1u, takeCrossings().size());
    callMember(bridge, selector, nullptr);
    EXPECT_EQ(1u, takeCrossings().size()) << "an error pointer is not needed";
  });
}

void everyMemberInterfaceMissing() {
  forEveryMember([](id bridge, SEL selector) {
    ProbeObject &object = lasting<ProbeObject>();
    object.queryStatus = kNoInterface;
    NSError *const before = staleError();
    NSError *error = before;
    {
      NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
      id stranger = [[bridge class] bridge:&object];
      PlatformTrace trace;
      EXPECT_EQ(0, callMember(stranger, selector, &error));
      EXPECT_EQ("", trace.names());
      [pool release];
    }
    EXPECT_EQ(before, error) << "the failure is swallowed";
    EXPECT_EQ(1u, object.queries.size());
    EXPECT_EQ(1, object.references());
  });
}

/// An object whose table answers every slot with its number.
HRESULT WRT_ABI queryInterfaceOfSlots(void *self, const GUID *, void **result) {
  *result = self;
  return 0;
}
uint32_t WRT_ABI countOfSlots(void *) { return 1; }

int calledSlot = 0;
template <int slot>
HRESULT WRT_ABI recordSlot(void *) {
  calledSlot = slot;
  return kFailure;
}
template <int... slot>
void **slotTable(std::integer_sequence<int, slot...>) {
  static void *table[] = {reinterpret_cast<void *>(recordSlot<slot>)...};
  table[0] = reinterpret_cast<void *>(queryInterfaceOfSlots);
  table[1] = table[2] = reinterpret_cast<void *>(countOfSlots);
  return table;
}

void slots() {
  static void **object[] = {slotTable(std::make_integer_sequence<int, 60>())};
  for (Class type in
       [NSArray arrayWithObjects:[WRTTestInterfaceBridge class], [WRTTestClassBridge class], nil]) {
    std::vector<int> called;
    for (SEL selector : memberSelectors(type)) {
      calledSlot = 0;
      callMember([type bridge:object], selector, nullptr);
      called.push_back(calledSlot);
    }
    std::ranges::sort(called);
    std::vector<int> expected;
    for (int slot = 6; slot <= 51; ++slot) {
      if (slot != 13 && slot != 14)
        expected.push_back(slot);
    }
    if (type == [WRTTestClassBridge class])
      expected.insert(expected.begin(), 6); // the second interface's
    EXPECT_EQ(expected, called);
  }
}

void slotOfEachMember() {
  const std::pair<const char *, int> members[] = {
      {"voidFunctionWithError:", 6},
      {"outPrimitiveArrayPreallocatedWithSize:count:arr:error:", 11},
      {"inDelegateWithArg:error:", 12},
      {"inInterfaceWithArg:error:", 15},
      {"inStringArrayWithArr:error:", 20},
      {"outStringArrayPreallocatedWithSize:arr:error:", 29},
      {"returnPrimitiveWithError:", 30},
      {"returnStringArrayPreallocatedWithSize:error:", 41},
      {"inStructWithArg:error:", 42},
      {"inDelegateReturnInterfaceWithArg:error:", 51},
  };
  static void **object[] = {slotTable(std::make_integer_sequence<int, 60>())};
  for (auto [name, slot] : members) {
    callMember([WRTTestClassBridge bridge:object], sel_getUid(name), nullptr);
    EXPECT_EQ(slot, calledSlot) << name;
  }
}

void otherThread() {
  id<WRTTestInterfaceBridge> bridge = newBridge([WRTTestInterfaceBridge class]);
  script().count = 17;
  Thread([bridge] {
    NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
    NSError *error = nil;
    NSMutableArray *array = [NSMutableArray array];
    [bridge outInterfaceArrayPreallocatedWithSize:17 arr:array error:&error];
    [bridge inInterfaceArrayWithArr:array error:&error];
    EXPECT_EQ(17u, [array count]);
    EXPECT_EQ(nil, error);
    [pool release];
  }).join();
}

void manyThreads() {
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
}

void secondInterface() {
  resetScript();
  WRTTestClassBridge *bridge = newBridge([WRTTestClassBridge class]);
  takeCrossings();
  [bridge voidFunctionFromInterface2WithError:nullptr];
  [[WRTTestInterface2Bridge cast:bridge] voidFunctionFromInterface2WithError:nullptr];
  EXPECT_EQ((Crossings{"VoidFunctionFromInterface2", "VoidFunctionFromInterface2"}),
            takeCrossings());
}

// Arguments are retained before the receiver is asked; only then may anything else let go of them.
void retainedFirst() {
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
}

void errorLast() {
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
  clearCrossings();

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
}

const Cell cells[] = {
    {"frame.all.arguments.retained_first", retainedFirst},
    {"frame.all.error.last", errorLast},
    {"frame.all.every_member.failing", everyMemberFailing},
    {"frame.all.every_member.interface_missing", everyMemberInterfaceMissing},
    {"frame.all.every_member.slots", slots},
    {"frame.all.some_members.slot_of_each", slotOfEachMember},
    {"frame.all.arrays.other_thread", otherThread},
    {"frame.all.strings.many_threads", manyThreads},
    {"frame.all.second_interface.normal", secondInterface},
};

} // namespace

} // namespace wrt::test
