// Calls the product through real messages, on ARM: the test classes and some of the catalogue. The
// WinRT objects behind them are fakes that look at what reaches them.
#include "arm/ProductTest.h"

#include "arm/Check.h"

#import <WRTObjcBridge/Windows.ApplicationModel.h>
#import <WRTObjcBridge/test.h>

using namespace wrt::test;

extern "C" OBJC_EXPORT void runTests() {
  // The product's own image, this one's and that of the string utility's double.
  CHECK(testRegisteredImages() == 3);
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

/// A class that is a proxy cannot be activated.
extern "C" OBJC_EXPORT void activateProxy() {
  hostExpectEnd("XPAbortWithBacktrace");
  static_cast<void>([static_cast<id>([WRTAppDisplayInfoBridge alloc]) init]);
}

/// What `activateProxy` logged before its end.
extern "C" OBJC_EXPORT void lookAtLog() {
  CHECK(testLogLevel() == 2);
  CHECK(same(testLogFunction(), "+[WRTClassProxy activateInstance]"));
}
