// Blocks that WinRT calls: delegates with and without results, events, completion handlers.
#include "arm/FakeObject.h"
#include "arm/ProductTest.h"

#import <WRTObjcBridge/IAsyncOperation.h>
#import <WRTObjcBridge/Windows.UI.Core.h>
#import <WRTObjcBridge/Windows.UI.Popups.h>
#import <WRTObjcBridge/test.h>
#include <abi/IAsyncOperation.abi.h>
#include <abi/Windows.UI.Core.abi.h>
#include <abi/Windows.UI.Popups.abi.h>
#include <abi/test.abi.h>

namespace wrt::test {

namespace {

using TestObject = FakeObject<WRTTestInterfaceVtbl>;

/// The delegate that a fake was given last, kept as an event source keeps it.
void *kept;
long long seenToken;

HRESULT keep(void *delegate) {
  WRTIUnknownAddRef(delegate);
  kept = delegate;
  return 0;
}

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

void testEvents() {
  FakeObject<WRTICoreWindowVtbl> window(kWRTICoreWindowIID);
  WRTICoreWindowBridge *bridge = [[WRTICoreWindowBridge alloc] initWithInner:&window];
  window.table.add_Activated = [](WRTICoreWindow *, void *handler,
                                  WRTEventRegistrationToken *result) -> HRESULT {
    result->value = 0x7FFFFFFF12345678;
    return keep(handler);
  };
  window.table.remove_Activated = [](WRTICoreWindow *, WRTEventRegistrationToken token) -> HRESULT {
    seenToken = token.value;
    return 0;
  };
  static const void *sender;
  NSError *error = nil;
  const WRTEventRegistrationToken token = [bridge
      addActivatedWithHandler:^HRESULT(WRTCoreWindowBridge *from,
                                       WRTWindowActivatedEventArgsBridge *) {
        sender = [from inner];
        return 0;
      }
                        error:&error];
  CHECK(token.value == 0x7FFFFFFF12345678 && error == nil);
  CHECK(same(testLastFactory(), "WRTTypedEventHandler__2_WRTCoreWindow_P_"
                                "WRTWindowActivatedEventArgs_PFromBlock"));
  CHECK((invoke<void *, void *>(kept, &window, &window) == 0) && sender == &window);
  [bridge removeActivatedWithToken:token error:&error];
  CHECK(seenToken == 0x7FFFFFFF12345678);
  drop();

  window.table.add_Activated = [](WRTICoreWindow *, void *,
                                  WRTEventRegistrationToken *) -> HRESULT { return kFail; };
  [bridge
      addActivatedWithHandler:^HRESULT(WRTCoreWindowBridge *, WRTWindowActivatedEventArgsBridge *) {
        return 0;
      }
                        error:&error];
  CHECK([error code] == kFail && testLiveDelegates() == 0);
  CHECK(window.references == 1);
  [bridge release];
}

void testCatalogueDelegates() {
  static int status;
  FakeObject<WRTIAsyncOperation__1_WRTIUICommand_PVtbl> operation(
      kWRTIAsyncOperation__1_WRTIUICommand_PIID);
  operation.table.put_Completed = [](WRTIAsyncOperation__1_WRTIUICommand_P *,
                                     void *handler) -> HRESULT { return keep(handler); };
  [[WRTIAsyncOperation__1_WRTIUICommand_P_Bridge bridge:&operation]
      setCompletedWithHandler:^HRESULT(id<WRTIAsyncOperation__1_WRTIUICommand_P_Bridge> done,
                                       int how) {
        status = [done inner] == kept ? -1 : how;
        return 0;
      }
                        error:nil];
  CHECK((invoke<void *, int>(kept, &operation, 2) == 0) && status == 2);
  drop();

  FakeObject<WRTIUICommandFactoryVtbl> commands(kWRTIUICommandFactoryIID);
  commands.table.CreateWithHandler = [](WRTIUICommandFactory *, HSTRING label, void *action,
                                        WRTIUICommand **result) -> HRESULT {
    *result = nullptr;
    return hasText(label, u"OK") ? keep(action) : kFail;
  };
  testSetFactory(u"Windows.UI.Popups.UICommand", &commands);
  NSError *error = nil;
  static bool called;
  [WRTUICommandBridge createWithHandlerWithLabel:@"OK"
                                          action:^HRESULT(id<WRTIUICommandBridge>) {
                                            called = true;
                                            return 0;
                                          }
                                           error:&error];
  CHECK(error == nil && same(testLastFactory(), "WRTUICommandInvokedHandlerFromBlock"));
  CHECK(invoke<void *>(kept, &operation) == 0 && called);
  testSetFactory(u"", nullptr);
  drop();
}

} // namespace

void testDelegates() {
  TestObject object(kWRTTestInterfaceIID);
  WRTTestInterfaceBridge *bridge = [[WRTTestInterfaceBridge alloc] initWithInner:&object];
  testArguments(object, bridge);
  testStringResult(object, bridge);
  testInterfaceResult(object, bridge);
  CHECK(object.references == 1);
  [bridge release];
  testEvents();
  testCatalogueDelegates();
}

} // namespace wrt::test
