// The bridge object model: wrapping, casting, comparing, querying, activating.

#include "tests/support/Bridges.h"

#include <WRTBridge.h>
#include <WRTBridgeUtil.h>
#import <WRTObjcBridge/WRTClassProxy.h>
#import <WRTObjcBridge/WRTIInspectableBridge.h>
#import <WRTObjcBridge/WRTInterfaceProxy.h>
#import <WRTObjcBridge/test.h>

#include <utility>

using namespace wrt::test;

namespace {

void *activatedObject = nullptr;
int instanceQueries = 0;

} // namespace

/// A bridge class of the test's own with default activation that stands in the way of queries.
@interface ActivatableProbe : WRTTestClassBridge
@end

@implementation ActivatableProbe
+ (void *)activateInstance {
  return activatedObject;
}
+ (void *)queryInterface:(void *)object withGUID:(GUID)guid error:(NSError **)error {
  ADD_FAILURE() << "the root class is to be asked";
  return [super queryInterface:object withGUID:guid error:error];
}
- (void *)queryInterfaceWithGUID:(GUID)guid error:(NSError **)error {
  ++instanceQueries;
  return [super queryInterfaceWithGUID:guid error:error];
}
@end

namespace {

const Cell wrapping("bridge.object.wrap.normal", [] {
  ProbeObject &object = lasting<ProbeObject>();
  @autoreleasepool {
    WRTUnknownBridge *added = [WRTInterfaceProxy bridge:&object];
    EXPECT_EQ([WRTInterfaceProxy class], [added class]);
    EXPECT_EQ(&object, [added inner]);
    EXPECT_EQ(2, object.references());
    EXPECT_EQ(&object, [[WRTUnknownBridge bridgeTransfer:&object] inner]);
    EXPECT_EQ(2, object.references()) << "a transfer adds nothing";
  }
  EXPECT_EQ(0, object.references()) << "each bridge dropped one reference";
});

const Cell wrappingNull("bridge.object.wrap.null", [] {
  EXPECT_EQ(nil, [WRTInterfaceProxy bridgeTransfer:nullptr]);
  EXPECT_EQ(nil, [WRTInterfaceProxy bridge:nullptr]);
  const std::vector<LogRecord> expected = {
      {4, "+[WRTUnknownBridge bridgeTransfer:]", "",
       "+[WRTInterfaceProxy bridgeTransfer:] cannot bridge nil inner object!"},
      {4, "+[WRTUnknownBridge bridge:]", "",
       "+[WRTInterfaceProxy bridge:] cannot bridge nil inner object!"}};
  EXPECT_EQ(expected, logRecords());
});

const Cell casting("bridge.object.cast.normal", [] {
  ProbeObject &object = lasting<ProbeObject>();
  @autoreleasepool {
    WRTIInspectableBridge *bridge = [WRTIInspectableBridge bridge:&object];
    EXPECT_EQ(nil, [WRTIInspectableBridge cast:nil]);
    EXPECT_EQ(bridge, [WRTIInspectableBridge cast:bridge]);
    EXPECT_EQ(2, object.references());
    WRTInspectableBridge *other = [WRTInspectableBridge cast:bridge];
    EXPECT_NE(static_cast<id>(bridge), static_cast<id>(other)) << "a subclass does not count";
    EXPECT_EQ([WRTInspectableBridge class], [other class]);
    EXPECT_EQ(3, object.references());
    EXPECT_TRUE(object.queries.empty()) << "a cast asks the object nothing";
  }
  EXPECT_EQ(1, object.references());
});

const Cell comparing("bridge.object.compare.normal", [] {
  ProbeObject &object = lasting<ProbeObject>();
  ProbeObject &other = lasting<ProbeObject>();
  ProbeObject &facet = lasting<ProbeObject>();
  WRTInspectableBridge *bridge = [WRTInspectableBridge bridge:&object];
  EXPECT_TRUE([bridge isEqual:bridge]);
  EXPECT_TRUE(object.queries.empty());
  EXPECT_FALSE([bridge isEqual:nil]);
  EXPECT_FALSE([bridge isEqual:[WRTInspectableBridge class]]);
  EXPECT_FALSE([bridge isEqual:[WRTIInspectableBridge bridge:&object]]) << "other class";
  EXPECT_FALSE([bridge isEqual:[WRTInspectableBridge bridge:&other]]);

  facet.answer = &object;
  WRTInspectableBridge *second = [WRTInspectableBridge bridge:&facet];
  EXPECT_TRUE([bridge isEqual:second]) << "two interfaces of one object";
  EXPECT_EQ(WRTIUnknownGetUUID(), object.queries.back());
  EXPECT_NE([bridge hash], [[WRTInspectableBridge bridge:&object] hash])
      << "hash stays the bridge's own";

  object.queryStatus = facet.queryStatus = kNoInterface;
  EXPECT_TRUE([bridge isEqual:second]) << "two failures compare equal";
});

const Cell querying("bridge.object.query.normal", [] {
  ProbeObject &object = lasting<ProbeObject>();
  WRTInspectableBridge *bridge = [WRTInspectableBridge bridge:&object];
  const GUID iid = {1, 2, 3, {4, 5, 6, 7, 8, 9, 10, 11}};
  NSError *error = staleError();
  EXPECT_EQ(&object, [bridge queryInterfaceWithGUID:iid error:&error]);
  EXPECT_EQ(nil, error);
  EXPECT_EQ(3, object.references());
  EXPECT_EQ(iid, object.queries.back());
  EXPECT_EQ(&object, [bridge queryInterfaceWithGUID:iid error:nullptr]);
  WRTIInspectable *inspectable = [bridge _WRTIInspectableWithError:&error];
  EXPECT_EQ(&object, static_cast<void *>(inspectable));
  EXPECT_EQ(wrt::abi::IInspectable::kIid, object.queries.back());

  // Each accessor asks the bridge itself, which no subclass's class method comes between.
  WRTTestClassBridge *own = [ActivatableProbe bridge:&object];
  instanceQueries = 0;
  [own _WRTIUnknownWithError:&error];
  [own _WRTIInspectableWithError:&error];
  [own _WRTTestInterfaceWithError:&error];
  EXPECT_EQ(3, instanceQueries);
});

const Cell queryFailing("bridge.object.query.failing", [] {
  WRTInspectableBridge *bridge = strangerOf([WRTInspectableBridge class]);
  NSError *error = nil;
  EXPECT_EQ(nullptr, [bridge queryInterfaceWithGUID:GUID {} error:&error]);
  EXPECT_TRUE([[error domain] isEqual:@"WRT"]);
  EXPECT_EQ(-2147467262, [error code]);
  EXPECT_EQ(nullptr, [bridge queryInterfaceWithGUID:GUID {} error:nullptr]);
  const LogRecord expected = {3, "+[WRTUnknownBridge queryInterface:withGUID:error:]", "",
                              "Failed QueryInterface 80004002"};
  EXPECT_EQ((std::vector<LogRecord>{expected, expected}), logRecords());
});

const Cell activating("bridge.object.activate.normal", [] {
  ProbeObject &object = lasting<ProbeObject>();
  activatedObject = &object;
  ActivatableProbe *bridge = [[ActivatableProbe alloc] init];
  EXPECT_EQ(&object, [bridge inner]);
  EXPECT_EQ(1, object.references()) << "activation's reference is the bridge's";
  [bridge release];
  EXPECT_EQ(0, object.references());
});

const Cell activatingWithoutConstructor("bridge.object.activate.no_constructor", [] {
  EXPECT_EQ(nil, [[WRTUnknownBridge alloc] init]);
  const std::vector<LogRecord> expected = {
      {3, "-[WRTUnknownBridge init]", "",
       "Tried to create WRTUnknownBridge with default constructor, which it doesn't support!"}};
  EXPECT_EQ(expected, logRecords());
});

const Cell activatingProxy("bridge.object.activate.proxy_aborts", [] {
  const char *const message =
      "1 messages\n2 \\+\\[WRTClassProxy activateInstance\\] Can't activate instance of "
      "WRTClassProxy because "
      "this is a proxy class\\. You must generate a full bridge for this interface to construct "
      "instances or call methods\\.";
  EXPECT_DEATH((printLogWhenAborted(), [static_cast<id>([WRTClassProxy alloc]) init]), message);
  // A threshold of 1 silences the message, but not the end.
  EXPECT_DEATH(
      {
        printLogWhenAborted();
        settleNextThreshold(1);
        [WRTUnknownBridge bridge:nullptr];
        clearLog();
        [WRTClassProxy activateInstance];
      },
      "0 messages");
});

/// The first slots of a table that take what an inspectable's own members take.
struct FirstSlots {
  static inline HRESULT status;
  static inline HSTRING name;
  static inline bool isAskedForTrust;

  static HRESULT WRT_ABI iids(void *, unsigned *count, GUID **iids) {
    static GUID one;
    *count = 1;
    *iids = &one;
    return status;
  }
  static HRESULT WRT_ABI className(void *, HSTRING *result) {
    *result = std::exchange(name, nullptr);
    return status;
  }
  // As release it gets no second argument.
  static HRESULT WRT_ABI trust(void *, int32_t *level) {
    if (std::exchange(isAskedForTrust, false))
      *level = 2;
    return status;
  }

  static inline void *const table[] = {reinterpret_cast<void *>(iids),
                                       reinterpret_cast<void *>(className),
                                       reinterpret_cast<void *>(trust)};
  static inline void *const *const object = table;
};

void firstSlots(HRESULT status) {
  ProbeObject &object = lasting<ProbeObject>();
  object.answer = const_cast<void *const **>(&FirstSlots::object);
  WRTInspectableBridge *bridge = [WRTInspectableBridge bridge:&object];
  FirstSlots::status = status;
  NSError *const before = staleError();

  NSError *error = before;
  unsigned count = 0;
  EXPECT_NE(nullptr, [bridge getIids:&count error:&error]);
  EXPECT_EQ(1u, count);
  EXPECT_EQ(nil, error) << "its status is not looked at";

  FirstSlots::name = status < 0 ? nullptr : WRTHSTRINGFromCFString(@"name");
  error = before;
  {
    PlatformTrace trace;
    NSString *name = [bridge getRuntimeClassNameWithError:&error];
    EXPECT_EQ(status >= 0, [name isEqual:@"name"]);
    EXPECT_EQ(status < 0 ? "WRTIUnknownSafeRelease"
                         : "WRTHSTRINGToCFString WRTHSTRINGRelease WRTIUnknownSafeRelease",
              trace.names());
  }
  EXPECT_EQ(status < 0 ? status : 0, [error code]);
  WRTHSTRINGRelease(std::exchange(FirstSlots::name, nullptr));

  error = before;
  FirstSlots::isAskedForTrust = true;
  EXPECT_EQ(2, [bridge getTrustLevelWithError:&error]);
  FirstSlots::isAskedForTrust = false;
  EXPECT_EQ(status < 0 ? status : 0, [error code]);
}

// Slots 0 to 2 are called where an inspectable's members proper stand at 3 to 5.
const Cell inspectableSlots("bridge.object.inspectable_slots.kept", [] {
  ProbeObject &object = lasting<ProbeObject>();
  WRTInspectableBridge *bridge = [WRTInspectableBridge bridge:&object];
  NSError *error = nil;

  GUID question = {7, 7, 7, {}};
  object.queries.clear();
  GUID *iids = [bridge getIids:reinterpret_cast<unsigned *>(&question) error:&error];
  EXPECT_EQ(question, object.queries.back()) << "slot 0 is QueryInterface";
  EXPECT_EQ(static_cast<void *>(&object), iids);
  object.Release();

  int before = object.references();
  EXPECT_TRUE([[bridge getRuntimeClassNameWithError:&error] isEqual:@""]);
  EXPECT_EQ(nil, error);
  EXPECT_EQ(before + 1, object.references()) << "slot 1 is AddRef";

  before = object.references();
  EXPECT_EQ(0, [bridge getTrustLevelWithError:&error]);
  EXPECT_EQ(nil, error);
  EXPECT_EQ(before - 1, object.references()) << "slot 2 is Release";

  object.queryStatus = kNoInterface;
  unsigned count = 0;
  EXPECT_FAILS(kNoInterface, [bridge getIids:&count error:&failure]);
  EXPECT_FAILS(kNoInterface, [bridge getRuntimeClassNameWithError:&failure]);
  EXPECT_FAILS(kNoInterface, [bridge getTrustLevelWithError:&failure]);
  for (HRESULT status : {0, 1, kNoInterface})
    firstSlots(status);
});

} // namespace
