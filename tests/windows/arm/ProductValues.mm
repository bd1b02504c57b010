// Numbers and structures, in every place where ARM passes them: core registers in pairs and with
// gaps, floating-point registers, the stack, hidden pointers.
#include "arm/FakeObject.h"
#include "arm/ProductTest.h"

#import <WRTObjcBridge/Windows.ApplicationModel.Appointments.h>
#import <WRTObjcBridge/Windows.Foundation.h>
#import <WRTObjcBridge/Windows.UI.Core.h>
#import <WRTObjcBridge/Windows.UI.Xaml.h>
#import <WRTObjcBridge/Windows.UI.h>
#import <WRTObjcBridge/test.h>
#include <abi/Windows.ApplicationModel.Appointments.abi.h>
#include <abi/Windows.Foundation.abi.h>
#include <abi/Windows.UI.Core.abi.h>
#include <abi/Windows.UI.Xaml.abi.h>
#include <abi/Windows.UI.abi.h>
#include <abi/test.abi.h>

namespace wrt::test {

namespace {

constexpr long long kStart = 0x0123456789ABCDEF;
constexpr long long kLength = 0x7FEDCBA987654321;
constexpr GUID kIdentifier = {0x01020304, 0x0506, 0x0708, {9, 10, 11, 12, 13, 14, 15, 16}};

/// What a fake saw last.
const void *seenPointer;
int seenNumber;
bool seenAll;

void testNumbers(FakeObject<WRTTestInterfaceVtbl> &object, WRTTestInterfaceBridge *bridge) {
  NSError *error = nil;
  object.table.InPrimitive = [](WRTTestInterface *, int x) -> HRESULT {
    seenNumber = x;
    return 1; // a success code other than zero
  };
  [bridge inPrimitiveWithX:-2147483647 error:&error];
  CHECK(seenNumber == -2147483647 && error == nil);

  object.table.OutPrimitive = [](WRTTestInterface *, int *x) -> HRESULT {
    *x = -3;
    return 0;
  };
  int out = 0;
  [bridge outPrimitiveWithX:&out error:&error];
  CHECK(out == -3);

  object.table.ReturnPrimitive = [](WRTTestInterface *, int *result) -> HRESULT {
    *result = -4;
    return 0;
  };
  CHECK([bridge returnPrimitiveWithError:&error] == -4);

  object.table.OutPrimitiveArrayPreallocated = [](WRTTestInterface *, int size, int *count,
                                                  int *arr) -> HRESULT {
    *count = size - 1;
    arr[0] = 77;
    seenPointer = arr;
    return 0;
  };
  int buffer[3] = {};
  int count = 0;
  [bridge outPrimitiveArrayPreallocatedWithSize:3 count:&count arr:buffer error:&error];
  CHECK(count == 2 && buffer[0] == 77 && seenPointer == buffer);
}

void testStructures(FakeObject<WRTTestInterfaceVtbl> &object, WRTTestInterfaceBridge *bridge) {
  NSError *error = nil;
  object.table.InStruct = [](WRTTestInterface *, WRTTestStruct arg) -> HRESULT {
    seenAll = arg.x == 11 && arg.y == -12;
    return 0;
  };
  [bridge inStructWithArg:{11, -12} error:&error];
  CHECK(seenAll);

  object.table.ReturnStruct = [](WRTTestInterface *, WRTTestStruct *result) -> HRESULT {
    *result = {13, -14};
    return 0;
  };
  const WRTTestStruct returned = [bridge returnStructWithError:&error];
  CHECK(returned.x == 13 && returned.y == -14 && error == nil);

  object.table.ReturnStruct = [](WRTTestInterface *, WRTTestStruct *result) -> HRESULT {
    *result = {1, 2};
    return kFail;
  };
  const WRTTestStruct failed = [bridge returnStructWithError:&error];
  CHECK(failed.x == 0 && failed.y == 0 && [error code] == kFail);

  object.table.ReturnStructArray = [](WRTTestInterface *, int *count,
                                      WRTTestStruct **arr) -> HRESULT {
    static WRTTestStruct structures[2] = {{1, 2}, {3, 4}};
    *count = 2;
    *arr = structures;
    return 0;
  };
  int count = 0;
  WRTTestStruct *structures = nullptr;
  [bridge returnStructArrayWithCount:&count arr:&structures error:&error];
  CHECK(count == 2 && structures[1].y == 4 && error == nil);
}

void testDates() {
  FakeObject<WRTIAppointmentVtbl> appointment(kWRTIAppointmentIID);
  WRTIAppointmentBridge *bridge = [WRTIAppointmentBridge bridge:&appointment];
  // The receiver leaves one register before the pair that a 64-bit value takes.
  appointment.table.put_StartTime = [](WRTIAppointment *, WRTDateTime value) -> HRESULT {
    seenAll = value.UniversalTime == kStart;
    return 0;
  };
  [bridge setStartTimeWithValue:{kStart} error:nil];
  CHECK(seenAll);
  appointment.table.get_Duration = [](WRTIAppointment *, WRTTimeSpan *result) -> HRESULT {
    result->Duration = kLength;
    return 0;
  };
  CHECK([bridge getDurationWithError:nil].Duration == kLength);

  FakeObject<WRTIAppointmentCalendarVtbl> calendar(kWRTIAppointmentCalendarIID);
  calendar.table.FindAppointmentsAsync =
      [](WRTIAppointmentCalendar *, WRTDateTime start, WRTTimeSpan length,
         WRTIAsyncOperation__1_WRTIVectorView__1_WRTAppointment_P_P **result) -> HRESULT {
    seenAll = start.UniversalTime == kStart && length.Duration == kLength;
    *result = nullptr;
    return 0;
  };
  seenAll = false;
  CHECK([[WRTIAppointmentCalendarBridge bridge:&calendar]
            findAppointmentsAsyncWithRangeStart:{kStart}
                                    rangeLength:{kLength}
                                          error:nil] == nil);
  CHECK(seenAll);

  // Registers of both kinds, then the stack with a gap before its 64-bit value.
  FakeObject<WRTIAppointmentStoreVtbl> store(kWRTIAppointmentStoreIID);
  store.table.ShowReplaceAppointmentWithPlacementAndDateAsync =
      [](WRTIAppointmentStore *, HSTRING localId, WRTIAppointment *appointment, WRTRect selection,
         int placement, WRTDateTime date, WRTIAsyncOperation__1_WRTHSTRING **result) -> HRESULT {
    seenAll = hasText(localId, u"id") && appointment == nullptr && selection.X == 1.5f &&
              selection.Y == -2.5f && selection.Width == 3.25f && selection.Height == 4.75f &&
              placement == 3 && date.UniversalTime == kStart;
    *result = nullptr;
    return 0;
  };
  seenAll = false;
  [[WRTIAppointmentStoreBridge bridge:&store]
      showReplaceAppointmentWithPlacementAndDateAsyncWithLocalId:@"id"
                                                     appointment:nil
                                                       selection:{1.5f, -2.5f, 3.25f, 4.75f}
                                              preferredPlacement:3
                                               instanceStartDate:{kStart}
                                                           error:nil];
  CHECK(seenAll);
}

void testFloatingPoint() {
  FakeObject<WRTICoreWindowVtbl> window(kWRTICoreWindowIID);
  window.table.get_Bounds = [](WRTICoreWindow *, WRTRect *result) -> HRESULT {
    *result = {0.5f, -1.5f, 2.5f, -3.5f};
    return 0;
  };
  window.table.get_PointerPosition = [](WRTICoreWindow *, WRTPoint *result) -> HRESULT {
    *result = {-7.25f, 8.5f};
    return 0;
  };
  window.table.get_Visible = [](WRTICoreWindow *, unsigned char *result) -> HRESULT {
    *result = 0x80;
    return 0;
  };
  WRTICoreWindowBridge *bridge = [WRTICoreWindowBridge bridge:&window];
  const WRTRect bounds = [bridge getBoundsWithError:nil];
  CHECK(bounds.X == 0.5f && bounds.Y == -1.5f && bounds.Width == 2.5f && bounds.Height == -3.5f);
  const WRTPoint position = [bridge getPointerPositionWithError:nil];
  CHECK(position.X == -7.25f && position.Y == 8.5f);
  CHECK([bridge getVisibleWithError:nil] == true);

  FakeObject<WRTICoreWindow2Vtbl> second(kWRTICoreWindow2IID);
  second.table.put_PointerPosition = [](WRTICoreWindow2 *, WRTPoint value) -> HRESULT {
    seenAll = value.X == 0.25f && value.Y == -0.75f;
    return 0;
  };
  seenAll = false;
  [[WRTICoreWindow2Bridge bridge:&second] setPointerPositionWithValue:{0.25f, -0.75f} error:nil];
  CHECK(seenAll);

  FakeObject<WRTIThicknessHelperStaticsVtbl> helper(kWRTIThicknessHelperStaticsIID);
  helper.table.FromLengths = [](WRTIThicknessHelperStatics *, double left, double top, double right,
                                double bottom, WRTThickness *result) -> HRESULT {
    *result = {bottom, right, top, left};
    return 0;
  };
  testSetFactory(u"Windows.UI.Xaml.ThicknessHelper", &helper);
  const WRTThickness thickness = [WRTThicknessHelperBridge fromLengthsWithLeft:1.5
                                                                           top:-2.5
                                                                         right:1e300
                                                                        bottom:4
                                                                         error:nil];
  CHECK(thickness.Left == 4 && thickness.Top == 1e300 && thickness.Right == -2.5 &&
        thickness.Bottom == 1.5);
  CHECK(helper.references == 1);
}

void testSmallAndLarge() {
  FakeObject<WRTIColorHelperStaticsVtbl> colors(kWRTIColorHelperStaticsIID);
  colors.table.FromArgb = [](WRTIColorHelperStatics *, unsigned char a, unsigned char r,
                             unsigned char g, unsigned char b, WRTColor *result) -> HRESULT {
    *result = {b, g, r, a};
    return 0;
  };
  testSetFactory(u"Windows.UI.ColorHelper", &colors);
  const WRTColor color = [WRTColorHelperBridge fromArgbWithA:255 r:2 g:128 b:4 error:nil];
  CHECK(color.A == 4 && color.R == 128 && color.G == 2 && color.B == 255);

  FakeObject<WRTIPropertyValueStaticsVtbl> statics(kWRTIPropertyValueStaticsIID);
  statics.table.CreateGuid = [](WRTIPropertyValueStatics *, GUID value,
                                WRTIInspectable **result) -> HRESULT {
    seenAll = value == kIdentifier;
    *result = nullptr;
    return 0;
  };
  seenAll = false;
  testSetFactory(u"Windows.Foundation.PropertyValue", &statics);
  [WRTPropertyValueBridge createGuidWithValue:kIdentifier error:nil];
  CHECK(seenAll);

  FakeObject<WRTIPropertyValueVtbl> value(kWRTIPropertyValueIID);
  value.table.GetGuid = [](WRTIPropertyValue *, GUID *result) -> HRESULT {
    *result = kIdentifier;
    return 0;
  };
  CHECK([[WRTIPropertyValueBridge bridge:&value] getGuidWithError:nil] == kIdentifier);
  testSetFactory(u"", nullptr);
  CHECK(statics.references == 1 && colors.references == 1);
}

} // namespace

void testValues() {
  FakeObject<WRTTestInterfaceVtbl> object(kWRTTestInterfaceIID);
  WRTTestInterfaceBridge *bridge = [[WRTTestInterfaceBridge alloc] initWithInner:&object];
  testNumbers(object, bridge);
  testStructures(object, bridge);
  CHECK(object.references == 1);
  [bridge release];
  CHECK(object.references == 0);
  testDates();
  testFloatingPoint();
  testSmallAndLarge();
  testPoolPop(0);
}

} // namespace wrt::test
