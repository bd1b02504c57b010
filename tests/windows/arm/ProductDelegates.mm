// Blocks that WinRT calls: delegates with and without results.
#include "arm/Product.h"

namespace wrt::test {

namespace {

void drop() {
  CHECK(testLiveDelegates() == 1);
  CHECK(WRTIUnknownRelease(kept) == 0);
  testPoolPop(0);
  CHECK(testLiveDelegates() == 0);
}

void testArguments(TestObject &object, WRTTestInterfaceBridge *bridge) {
  static int number;
  static bool right;
  object.table.InDelegate = [](WRTTestInterface *, void *arg) -> HRESULT { return keep(arg); };
  NSError *error = nil;
  [bridge
      inDelegateWithArg:^HRESULT(int x, NSString *s, id<WRTTestInterfaceBridge> i,
                                 WRTTestClassBridge *c) {
        number = x;
        right = [s isEqualToString:@"text"] &&
                [static_cast<id>(i) class] == [WRTTestInterfaceBridge class] && c == nil;
        return 6;
      }
                  error:&error];
  CHECK(error == nil && same(testLastFactory(), "WRTTestDelegateFromBlock"));
  HSTRING text = testMakeString(u"text", 4);
  CHECK(invoke<int, HSTRING, void *, void *>(kept, -5, text, &object, nullptr) == 6);
  CHECK(number == -5 && right);
  CHECK(testLogLevel() == 4); // for the null object
  CHECK(testLiveStrings() == 1);
  WRTHSTRINGRelease(text);
  drop();
  CHECK(object.references == 1);
}

void testStringResult(TestObject &object, WRTTestInterfaceBridge *bridge) {
  object.table.InDelegateReturnString = [](WRTTestInterface *, void *arg) -> HRESULT {
    return keep(arg);
  };
  static HRESULT status;
  [bridge
      inDelegateReturnStringWithArg:^HRESULT(NSString **result) {
        if (status != 1)
          *result = @"a literal";
        return status;
      }
                              error:nil];
  HSTRING result = nullptr;
  status = 0;
  CHECK(invoke(kept, &result) == 0 && hasText(result, u"a literal"));
  WRTHSTRINGRelease(result);
  // No string, or a failure: nothing is written.
  HSTRING const untouched = reinterpret_cast<HSTRING>(&object);
  const HRESULT without[] = {1, kFail};
  for (const HRESULT each : without) {
    status = each;
    result = untouched;
    CHECK(invoke(kept, &result) == each && result == untouched);
  }
  drop();
}

void testInterfaceResult(TestObject &object, WRTTestInterfaceBridge *bridge) {
  object.table.InDelegateReturnInterface = [](WRTTestInterface *, void *arg) -> HRESULT {
    return keep(arg);
  };
  [bridge
      inDelegateReturnInterfaceWithArg:^HRESULT(id<WRTTestInterfaceBridge> *result) {
        *result = bridge;
        return 3;
      }
                                 error:nil];
  void *result = nullptr;
  CHECK(invoke(kept, &result) == 3 && result == &object && object.references == 2);
  object.references = 1;
  object.hasInterface = false;
  CHECK(invoke(kept, &result) == 3 && result == nullptr);
  CHECK(testLogLevel() == 4);
  CHECK(same(testLogFunction(), "-[WRTTestInterfaceBridge "
                                "inDelegateReturnInterfaceWithArg:error:]_block_invoke"));
  object.hasInterface = true;
  drop();
}

} // namespace

void testDelegates(TestObject &object, WRTTestInterfaceBridge *bridge) {
  testArguments(object, bridge);
  testStringResult(object, bridge);
  testInterfaceResult(object, bridge);
}

} // namespace wrt::test
