// Calls the test classes through real messages: in the product on ARM, and natively on i386, which
// has the same Objective-C ABI and 32-bit layouts. The WinRT objects behind them are fakes that
// look at what reaches them. That every other class is made alike is what armsweep sees.
#include "arm/Check.h"

using namespace wrt::test;

extern "C" OBJC_EXPORT void runTests() {
  const int live = testLiveObjects();
  testStringsAndArrays();
  testObjects();
  testDelegates();
  testPoolPop(0);
  CHECK(testLiveObjects() == live);
  CHECK(testLiveDelegates() == 0);
  CHECK(testLiveTaskBlocks() == 0);
  CHECK(testLiveStrings() == 0);
}
