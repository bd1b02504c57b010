// The greeter's add-on as ARM code beside the product: a class and an instance of its own, an event
// with its delegate, a value structure, and a proxy of the product that it completes.
#include "arm/FakeObject.h"

#import <GreeterBridge/Contoso.h>
#import <GreeterBridge/Devices.h>
#include <abi/Contoso.abi.h>
#include <abi/Devices.abi.h>

using namespace wrt::test;

namespace {

FakeObject<ContosoWRTIGuestVtbl> &guest() {
  static FakeObject<ContosoWRTIGuestVtbl> fake(kContosoWRTIGuestIID);
  return fake;
}

void testMembers() {
  FakeObject<ContosoWRTIGreeterVtbl> fake(kContosoWRTIGreeterIID);
  fake.table.Greet = [](ContosoWRTIGreeter *, HSTRING whom, HSTRING *greeting) -> HRESULT {
    CHECK(hasText(whom, u"Ada"));
    *greeting = testMakeString(u"Hi", 2);
    return 0;
  };
  fake.table.add_Arrived = [](ContosoWRTIGreeter *, void *handler,
                              WRTEventRegistrationToken *token) -> HRESULT {
    token->value = 7;
    return keep(handler);
  };
  guest().table.get_Visit = [](ContosoWRTIGuest *, ContosoWRTVisit *visit) -> HRESULT {
    *visit = {3, ContosoWRTMoodMerry, 22.5};
    return 0;
  };
  ContosoWRTGreeterBridge *greeter = [[ContosoWRTGreeterBridge alloc] initWithInner:&fake];
  NSError *error = nil;
  CHECK([[greeter greetWithWhom:@"Ada" error:&error] isEqualToString:@"Hi"] && !error);
  static ContosoWRTVisit visit;
  static bool isRight;
  [greeter
      addArrivedWithHandler:^HRESULT(ContosoWRTGreeterBridge *sender,
                                     ContosoWRTGuestBridge *arrived) {
        visit = [arrived getVisitWithError:nil];
        isRight = [sender class] == [ContosoWRTGreeterBridge class];
        return 5;
      }
                      error:&error];
  CHECK(!error);
  CHECK((invoke<void *, void *>(kept, &fake, &guest()) == 5));
  CHECK(isRight && visit.Number == 3 && visit.Mood == ContosoWRTMoodMerry && visit.Minutes == 22.5);
  void *found = nullptr;
  const GUID other = {1, 2, 3, {4}};
  CHECK(WRTIUnknownQueryInterface(kept, &other, &found) == kNoInterface && !found);
  CHECK(WRTIUnknownRelease(kept) == 0);
  fake.hasInterface = false;
  CHECK([greeter greetWithWhom:@"Ada" error:&error] == nil);
  [greeter release];
  testPoolPop(0);
  CHECK(fake.references == 0); // the bridge had taken it over
  CHECK(guest().references == 1);
}

void testCompletedProxy() {
  using Operation =
      FakeObject<ContosoWRTIAsyncOperation__1_WRTDeviceInformationCollection_P_CompletedVtbl>;
  Operation fake(kContosoWRTIAsyncOperation__1_WRTDeviceInformationCollection_P_CompletedIID);
  fake.table.put_Completed =
      [](ContosoWRTIAsyncOperation__1_WRTDeviceInformationCollection_P_Completed *,
         void *handler) -> HRESULT { return keep(handler); };
  WRTIAsyncOperation__1_WRTDeviceInformationCollection_P_Bridge *operation =
      [[WRTIAsyncOperation__1_WRTDeviceInformationCollection_P_Bridge alloc] initWithInner:&fake];
  static int seen;
  NSError *error = nil;
  [operation
      setCompletedWithHandler:^HRESULT(
          id<WRTIAsyncOperation__1_WRTDeviceInformationCollection_P_Bridge>,
          WRTAsyncStatus status) {
        seen = status;
        return 0;
      }
                        error:&error];
  CHECK(!error && (invoke<void *, int>(kept, &fake, 1) == 0) && seen == 1);
  CHECK(WRTIUnknownRelease(kept) == 0);
  [operation release];
  testPoolPop(0);
  CHECK(fake.references == 0); // the bridge had taken it over
}

} // namespace

extern "C" OBJC_EXPORT void runTests() {
  const int live = testLiveObjects();
  testMembers();
  testCompletedProxy();
  CHECK(testLiveObjects() == live);
  CHECK(testLiveTaskBlocks() == 0);
}
