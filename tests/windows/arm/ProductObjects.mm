// Objects in and out, and failures.
#include "arm/Product.h"

namespace wrt::test {

namespace {

const void *seenObject;
int seen;
/// What the fakes hand out.
TestObject *child;

void handOut(WRTTestInterface **result) {
  ++child->references;
  *result = child->as<WRTTestInterface>();
}

void testObjectsIn(TestObject &object, WRTTestInterfaceBridge *bridge) {
  NSError *error = nil;
  object.table.InInterface = [](WRTTestInterface *, WRTTestInterface *arg) -> HRESULT {
    seenObject = arg;
    return 0;
  };
  // A class takes the place of its interface.
  [bridge inInterfaceWithArg:[WRTTestClassBridge bridge:child] error:&error];
  CHECK(seenObject == child && error == nil);
  [bridge inInterfaceWithArg:nil error:&error];
  CHECK(seenObject == nullptr);

  // An object without the interface: no call, and its failure is reported.
  TestObject other(kWRTTestInterfaceIID);
  other.hasInterface = false;
  seenObject = &other;
  [bridge inInterfaceWithArg:[WRTTestInterfaceBridge bridge:&other] error:&error];
  CHECK(seenObject == &other && [error code] == kNoInterface);

  object.table.InRtcArray = [](WRTTestInterface *, int count, WRTTestInterface **arr) -> HRESULT {
    seen = 0;
    for (int i = 0; i < count; ++i)
      seen += arr[i] == child->as<WRTTestInterface>();
    return 0;
  };
  NSMutableArray *array = [NSMutableArray array];
  for (int i = 0; i < 18; ++i)
    [array addObject:[WRTTestClassBridge bridge:child]];
  const int references = child->references;
  [bridge inRtcArrayWithArr:array error:&error];
  CHECK(seen == 18 && error == nil && child->references == references);

  seen = -1;
  [array addObject:[WRTTestInterfaceBridge bridge:&other]];
  [bridge inRtcArrayWithArr:array error:&error];
  CHECK(seen == -1 && [error code] == kNoInterface && child->references == references);
  testPoolPop(0);
  CHECK(other.references == 1 && child->references == 1);
}

void testObjectsOut(TestObject &object, WRTTestInterfaceBridge *bridge) {
  NSError *error = nil;
  object.table.ReturnRtc = [](WRTTestInterface *, WRTTestInterface **result) -> HRESULT {
    handOut(result);
    return 0;
  };
  WRTTestClassBridge *returned = [bridge returnRtcWithError:&error];
  CHECK([returned class] == [WRTTestClassBridge class]);
  CHECK([returned inner] == child && child->references == 2);

  object.table.OutInterface = [](WRTTestInterface *, WRTTestInterface **arg) -> HRESULT {
    handOut(arg);
    return 0;
  };
  id<WRTTestInterfaceBridge> out = nil;
  [bridge outInterfaceWithArg:&out error:&error];
  CHECK([out inner] == child && child->references == 3);
  CHECK([static_cast<id>(out) class] == [WRTTestInterfaceBridge class]);

  object.table.ReturnInterfaceArrayPreallocated = [](WRTTestInterface *, int size, int *count,
                                                     WRTTestInterface **arr) -> HRESULT {
    for (int i = 0; i < size; ++i)
      handOut(&arr[i]);
    *count = size;
    return 0;
  };
  NSArray *array = [bridge returnInterfaceArrayPreallocatedWithSize:17 error:&error];
  CHECK([array count] == 17 && [array[16] inner] == child && child->references == 20);
  CHECK(testLiveTaskBlocks() == 0);

  // Among elements `NSNull` stands for a null, both ways; a filled block starts with nulls.
  object.table.ReturnInterfaceArrayPreallocated = [](WRTTestInterface *, int size, int *count,
                                                     WRTTestInterface **arr) -> HRESULT {
    handOut(&arr[1]);
    *count = size;
    return 0;
  };
  array = [bridge returnInterfaceArrayPreallocatedWithSize:2 error:&error];
  CHECK([array count] == 2 && [array[0] class] == [NSNull class]);
  CHECK([array[1] inner] == child && child->references == 21);
  object.table.InInterfaceArray = [](WRTTestInterface *, int count,
                                     WRTTestInterface **arr) -> HRESULT {
    seen = count == 2 && !arr[0] && arr[1] == child->as<WRTTestInterface>();
    return 0;
  };
  [bridge inInterfaceArrayWithArr:array error:&error];
  CHECK(seen == 1 && error == nil);
  [bridge returnInterfaceArrayPreallocatedWithSize:-1 error:&error];
  CHECK([error code] == static_cast<int>(0x80070057));

  // A null interface is nil without a word, a null object of a class is nil with one.
  const auto null = [](WRTTestInterface *, WRTTestInterface **result) -> HRESULT {
    *result = nullptr;
    return 0;
  };
  object.table.ReturnInterface = null;
  object.table.ReturnRtc = null;
  const int logged = testLogCount();
  CHECK([bridge returnInterfaceWithError:&error] == nil && testLogCount() == logged);
  CHECK([bridge returnRtcWithError:&error] == nil && testLogCount() == logged + 1);
  CHECK(testLogLevel() == 4);
  testPoolPop(0);
  CHECK(child->references == 1);
}

} // namespace

void testObjects(TestObject &object, WRTTestInterfaceBridge *bridge) {
  TestObject handedOut(kWRTTestInterfaceIID);
  child = &handedOut;
  testObjectsIn(object, bridge);
  testObjectsOut(object, bridge);
}

} // namespace wrt::test
