// Calls the test classes through real messages: in the product on ARM, and natively on i386, which
// has the same Objective-C ABI and 32-bit layouts. The WinRT objects behind them are fakes that
// look at what reaches them. That every other class is made alike is what armsweep sees.
#include "arm/Product.h"

using namespace wrt::test;

extern "C" OBJC_EXPORT void runTests() {
  const int live = testLiveObjects();
  void (*const tests[])(TestObject &, WRTTestInterfaceBridge *) = {testStringsAndArrays,
                                                                   testObjects, testDelegates};
  for (auto *test : tests) {
    TestObject object(kWRTTestInterfaceIID);
    WRTTestInterfaceBridge *bridge = [[WRTTestInterfaceBridge alloc] initWithInner:&object];
    test(object, bridge);
    testPoolPop(0);
    CHECK(object.references == 1);
    [bridge release];
    CHECK(object.references == 0); // the bridge had taken it over
  }
  CHECK(testLiveObjects() == live);
  CHECK(testLiveDelegates() == 0);
  CHECK(testLiveTaskBlocks() == 0);
  CHECK(testLiveStrings() == 0);
}
