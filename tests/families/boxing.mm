// Boxed values: property values and references.

#include "tests/families/Families.h"

#include "platform/linux/components/values/NumericConversion.h"
#include "platform/linux/components/values/Reference.h"

#include <WRTBridge.h>
#import <WRTObjcBridge/IReference.h>
#import <WRTObjcBridge/WRTIInspectableBridge.h>
#import <WRTObjcBridge/Windows.ApplicationModel.Appointments.h>
#import <WRTObjcBridge/Windows.Foundation.h>
#import <WRTObjcBridge/Windows.UI.Xaml.h>
#import <WRTObjcBridge/Windows.UI.h>
#include <abi/IReference.abi.h>

#import <objc/runtime.h>

#include <algorithm>
#include <array>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>

namespace wrt::test {

namespace {

using namespace implement;

using Boxed = id<WRTIInspectableBridge>;
using Values = WRTPropertyValueBridge;

WRTIPropertyValueBridge *valueOf(Boxed boxed) {
  return [WRTIPropertyValueBridge cast:static_cast<id>(boxed)];
}

template <class T>
bool same(const T &left, const T &right) {
  return std::memcmp(&left, &right, sizeof(T)) == 0;
}

/// Sends a message whose selector is put together from a type's name.
template <class Result, class... Arguments>
Result send(id receiver, const std::string &selector, Arguments... arguments) {
  SEL name = sel_getUid(selector.c_str());
  using Function = Result (*)(id, SEL, Arguments...);
  auto *function = reinterpret_cast<Function>(
      reinterpret_cast<void *>(class_getMethodImplementation(object_getClass(receiver), name)));
  return function(receiver, name, arguments...);
}

/// Boxes each of `values` and reads it again.
template <class T>
void roundTrip(int type, const std::string &name, std::initializer_list<T> values) {
  SCOPED_TRACE(name);
  for (const T &value : values) {
    NSError *error = staleErrorOfCaller();
    id boxed = send<id>([Values class], "create" + name + "WithValue:error:", value, &error);
    ASSERT_NE(nil, boxed);
    EXPECT_EQ(nil, error);
    EXPECT_EQ([WRTIInspectableBridge class], [boxed class]);
    WRTIPropertyValueBridge *read = valueOf(boxed);
    EXPECT_EQ(type, [read getTypeWithError:&error]);
    EXPECT_EQ(type < 10, [read getIsNumericScalarWithError:&error]);
    EXPECT_TRUE(same(value, send<T>(read, "get" + name + "WithError:", &error)));
    EXPECT_EQ(nil, error);
  }
}

void values() {
  roundTrip<unsigned char>(1, "UInt8", {0, 0xFF});
  roundTrip<short>(2, "Int16", {INT16_MIN, INT16_MAX});
  roundTrip<unsigned short>(3, "UInt16", {0, UINT16_MAX});
  roundTrip<int>(4, "Int32", {INT32_MIN, INT32_MAX});
  roundTrip<unsigned int>(5, "UInt32", {0, UINT32_MAX});
  roundTrip<long long>(6, "Int64", {INT64_MIN, INT64_MAX});
  roundTrip<unsigned long long>(7, "UInt64", {0, UINT64_MAX});
  roundTrip<float>(8, "Single", {-0.0f, FLT_MAX, INFINITY, NAN});
  roundTrip<double>(9, "Double", {-0.0, DBL_MAX, DBL_TRUE_MIN, static_cast<double>(NAN)});
  roundTrip<unsigned short>(10, "Char16", {0, 0xD800, 0xFFFF});
  roundTrip<bool>(11, "Boolean", {true, false});
  roundTrip<WRTDateTime>(14, "DateTime", {{INT64_MIN}, {INT64_MAX}});
  roundTrip<WRTTimeSpan>(15, "TimeSpan", {{-1}, {0x1122334455667788}});
  roundTrip<GUID>(16, "Guid", {abi::IAgileObject::kIid});
  roundTrip<WRTPoint>(17, "Point", {{1, -2}});
  roundTrip<WRTSize>(18, "Size", {{3, 4}});
  roundTrip<WRTRect>(19, "Rect", {{1, 2, 3, 4}});
}

void strings() {
  expectLeftover({.strings = 1}); // a string result is not released
  NSError *error = staleErrorOfCaller();
  Boxed text = [Values createStringWithValue:@"Grüße" error:&error];
  EXPECT_EQ(12, [valueOf(text) getTypeWithError:&error]);
  EXPECT_TRUE([[valueOf(text) getStringWithError:&error] isEqual:@"Grüße"]);
  Boxed nothing = [Values createStringWithValue:nil error:&error];
  EXPECT_TRUE([[valueOf(nothing) getStringWithError:&error] isEqual:@""]);
  EXPECT_EQ(nil, error);
}

void objects() {
  NSError *error = staleErrorOfCaller();
  Boxed inner = [Values createEmptyWithError:&error];
  EXPECT_EQ(0, [valueOf(inner) getTypeWithError:&error]);
  EXPECT_TRUE([static_cast<id>(inner) isEqual:[Values createInspectableWithValue:inner
                                                                           error:&error]]);
  EXPECT_EQ(nil, error);
  EXPECT_EQ(nil, [Values createInspectableWithValue:nil error:&error]);
  EXPECT_EQ(status::kInvalidArgument, [error code]);
  EXPECT_EQ(nil, [Values createInspectableWithValue:strangerOf([WRTIInspectableBridge class])
                                              error:&error]);
  EXPECT_EQ(kNoInterface, [error code]);
}

void wrongType() {
  Boxed text = [Values createStringWithValue:@"17" error:nullptr];
  Boxed truth = [Values createBooleanWithValue:true error:nullptr];
  Boxed character = [Values createChar16WithValue:17 error:nullptr];
  Boxed number = [Values createInt32WithValue:17 error:nullptr];
  NSError *error = nil;
  const auto mismatch = [&] {
    const HRESULT code = static_cast<HRESULT>([error code]);
    error = nil;
    return code == kTypeMismatch;
  };
  for (Boxed boxed : {text, truth, character}) {
    EXPECT_EQ(0, [valueOf(boxed) getInt32WithError:&error]);
    EXPECT_TRUE(mismatch());
  }
  EXPECT_EQ(nil, [valueOf(number) getStringWithError:&error]);
  EXPECT_TRUE(mismatch());
  EXPECT_FALSE([valueOf(number) getBooleanWithError:&error]);
  EXPECT_TRUE(mismatch());
  const WRTRect rect = [valueOf(number) getRectWithError:&error];
  EXPECT_TRUE(mismatch());
  EXPECT_TRUE(same(WRTRect{}, rect));
  EXPECT_EQ(0, [valueOf([Values createEmptyWithError:nullptr]) getInt16WithError:&error]);
  EXPECT_TRUE(mismatch());
  unsigned int count = 5;
  int stale = 0;
  int *values = &stale;
  [valueOf(number) getInt32ArrayWithValueSize:&count value:&values error:&error];
  EXPECT_TRUE(mismatch());
  EXPECT_EQ(0u, count);
  EXPECT_EQ(nullptr, values);
}

// Numbers become other numbers as far as they fit.
void conversions() {
  NSError *error = nil;
  const auto overflow = [&] {
    const HRESULT code = static_cast<HRESULT>([error code]);
    error = nil;
    return code == kOverflow;
  };
  const auto number = [](double value) {
    return valueOf([Values createDoubleWithValue:value error:nullptr]);
  };
  EXPECT_EQ(255, [number(255.4) getUInt8WithError:&error]);
  EXPECT_FALSE(overflow());
  EXPECT_EQ(0, [number(255.5) getUInt8WithError:&error]);
  EXPECT_TRUE(overflow());
  EXPECT_EQ(2, [number(2.5) getInt32WithError:&error]) << "halves to the even one";
  EXPECT_EQ(-4, [number(-3.5) getInt32WithError:&error]);
  EXPECT_EQ(INT64_MIN, [number(-0x1p63) getInt64WithError:&error]);
  EXPECT_FALSE(overflow());
  [number(0x1p63) getInt64WithError:&error];
  EXPECT_TRUE(overflow());
  EXPECT_EQ(0x8000000000000000u, [number(0x1p63) getUInt64WithError:&error]);
  EXPECT_FALSE(overflow());
  [number(0x1p64) getUInt64WithError:&error];
  EXPECT_TRUE(overflow());
  [number(NAN) getInt16WithError:&error];
  EXPECT_TRUE(overflow());
  [number(-1) getUInt16WithError:&error];
  EXPECT_TRUE(overflow());
  [number(DBL_MAX) getSingleWithError:&error];
  EXPECT_TRUE(overflow());
  EXPECT_EQ(INFINITY, [number(INFINITY) getSingleWithError:&error]);
  EXPECT_FALSE(overflow());

  WRTIPropertyValueBridge *minusOne = valueOf([Values createInt32WithValue:-1 error:nullptr]);
  EXPECT_EQ(-1, [minusOne getInt16WithError:&error]);
  EXPECT_EQ(-1.0, [minusOne getDoubleWithError:&error]);
  EXPECT_FALSE(overflow());
  [minusOne getUInt64WithError:&error];
  EXPECT_TRUE(overflow());
  WRTIPropertyValueBridge *most = valueOf([Values createUInt64WithValue:UINT64_MAX error:nullptr]);
  [most getInt64WithError:&error];
  EXPECT_TRUE(overflow());
  EXPECT_EQ(0x1p64f, [most getSingleWithError:&error]);
  EXPECT_FALSE(overflow());
}

/// Boxes arrays of 0 and of `values.size()` elements and reads them again.
template <class T>
void arrayRoundTrip(int type, const std::string &name, std::vector<T> values) {
  SCOPED_TRACE(name);
  for (unsigned int size : {0u, static_cast<unsigned int>(values.size())}) {
    NSError *error = staleErrorOfCaller();
    id boxed = send<id>([Values class], "create" + name + "ArrayWithValueSize:value:error:", size,
                        values.data(), &error);
    ASSERT_NE(nil, boxed);
    EXPECT_EQ(type, [valueOf(boxed) getTypeWithError:&error]);
    EXPECT_FALSE([valueOf(boxed) getIsNumericScalarWithError:&error]);
    unsigned int count = 99;
    T *read = nullptr;
    send<void>(valueOf(boxed), "get" + name + "ArrayWithValueSize:value:error:", &count, &read,
               &error);
    EXPECT_EQ(nil, error);
    ASSERT_EQ(size, count);
    for (unsigned int i = 0; i < size; ++i)
      EXPECT_TRUE(same(values[i], read[i]));
    WRTTaskMemFree(read);
  }
}

void arrays() {
  arrayRoundTrip<unsigned char>(1025, "UInt8", {1, 2, 0xFF});
  arrayRoundTrip<short>(1026, "Int16", {-1, 2});
  arrayRoundTrip<int>(1028, "Int32", std::vector<int>(1000, -7));
  arrayRoundTrip<unsigned long long>(1031, "UInt64", {UINT64_MAX});
  arrayRoundTrip<double>(1033, "Double", {1.5, -0.0});
  arrayRoundTrip<unsigned char>(1035, "Boolean", {0, 1});
  arrayRoundTrip<GUID>(1040, "Guid", {abi::IUnknown::kIid, abi::IInspectable::kIid});
  arrayRoundTrip<WRTRect>(1043, "Rect", {{1, 2, 3, 4}, {5, 6, 7, 8}});
}

// The caller's array is emptied first; the block that came is not freed. A failure leaves it alone.
void stringArrays() {
  expectLeftover({.taskBlocks = 1}); // that of the array with elements; an empty one has none
  NSArray *texts = @[ @"one", @"", @"zwölf 😀" ];
  NSError *error = staleErrorOfCaller();
  Boxed boxed = [Values createStringArrayWithValue:texts error:&error];
  EXPECT_EQ(1036, [valueOf(boxed) getTypeWithError:&error]);
  NSMutableArray *filled = [NSMutableArray arrayWithObject:@"before"];
  [valueOf(boxed) getStringArrayWithValue:filled error:&error];
  EXPECT_EQ(nil, error);
  EXPECT_TRUE([filled isEqual:texts]);

  Boxed empty = [Values createStringArrayWithValue:@[] error:&error];
  [valueOf(empty) getStringArrayWithValue:filled error:&error];
  EXPECT_EQ(0u, [filled count]);

  [filled addObject:@"stays"];
  [valueOf([Values createInt32WithValue:1 error:nullptr]) getStringArrayWithValue:filled
                                                                            error:&error];
  EXPECT_EQ(kTypeMismatch, [error code]);
  EXPECT_TRUE([filled isEqual:@[ @"stays" ]]);
  error = nil;
  failNextDuplicate(status::kOutOfMemory, 1);
  [valueOf(boxed) getStringArrayWithValue:filled error:&error];
  EXPECT_EQ(status::kOutOfMemory, [error code]);
  EXPECT_TRUE([filled isEqual:@[ @"stays" ]]);
}

void objectArrays() {
  expectLeftover({.taskBlocks = 1}); // element blocks are not freed
  Boxed one = [Values createInt32WithValue:1 error:nullptr];
  Boxed two = [Values createStringWithValue:@"two" error:nullptr];
  NSError *error = staleErrorOfCaller();
  Boxed boxed = [Values createInspectableArrayWithValue:@[ one, two ] error:&error];
  EXPECT_EQ(1037, [valueOf(boxed) getTypeWithError:&error]);
  NSMutableArray *filled = [NSMutableArray array];
  [valueOf(boxed) getInspectableArrayWithValue:filled error:&error];
  ASSERT_EQ(2u, [filled count]);
  EXPECT_EQ([WRTIInspectableBridge class], [[filled objectAtIndex:0] class]);
  EXPECT_EQ([static_cast<id>(two) inner], [[filled objectAtIndex:1] inner]);
  EXPECT_EQ(nil, error);
  NSArray *bad = @[ one, strangerOf([WRTIInspectableBridge class]), two ];
  EXPECT_EQ(nil, [Values createInspectableArrayWithValue:bad error:&error]);
  EXPECT_EQ(kNoInterface, [error code]);
}

// Each instance that the library reads.
void references() {
  NSError *error = staleErrorOfCaller();
  id boxed = [Values createSingleWithValue:1.5f error:&error];
  EXPECT_EQ(1.5f, [[WRTIReference__1_WRTFLOAT_Bridge cast:boxed] getValueWithError:&error]);
  id wrong = [WRTIReference__1_WRTINT32_Bridge cast:boxed];
  NSError *const stale = staleErrorOfCaller();
  error = stale;
  EXPECT_EQ(0, [static_cast<WRTIReference__1_WRTINT32_Bridge *>(wrong) getValueWithError:&error]);
  EXPECT_EQ(stale, error) << "a reference to another type lacks the interface";

  boxed = [Values createInt32WithValue:-5 error:&error];
  EXPECT_EQ(-5, [[WRTIReference__1_WRTINT32_Bridge cast:boxed] getValueWithError:&error]);
  boxed = [Values createUInt32WithValue:0xFFFFFFFF error:&error];
  EXPECT_EQ(0xFFFFFFFF, [[WRTIReference__1_WRTUINT32_Bridge cast:boxed] getValueWithError:&error]);
  boxed = [Values createDateTimeWithValue:WRTDateTime{7} error:&error];
  EXPECT_EQ(
      7, [[WRTIReference__1_WRTDateTime_Bridge cast:boxed] getValueWithError:&error].UniversalTime);
  boxed = [Values createTimeSpanWithValue:WRTTimeSpan{8} error:&error];
  EXPECT_EQ(8,
            [[WRTIReference__1_WRTTimeSpan_Bridge cast:boxed] getValueWithError:&error].Duration);

  using Color = Struct<WRTColor, "Windows.UI.Color", UInt8, UInt8, UInt8, UInt8>;
  abi::IReference__1_WRTColor *color = nullptr;
  makeReference<Color>(&color, WRTColor{1, 2, 3, 4});
  id<WRTIReference__1_WRTColor_Bridge> colorBridge =
      [WRTIReference__1_WRTColor_Bridge bridgeTransfer:color];
  EXPECT_TRUE(same(WRTColor{1, 2, 3, 4}, [colorBridge getValueWithError:&error]));
  EXPECT_EQ(20,
            [[WRTIPropertyValueBridge cast:static_cast<id>(colorBridge)] getTypeWithError:&error]);

  using Thickness =
      Struct<WRTThickness, "Windows.UI.Xaml.Thickness", Double, Double, Double, Double>;
  abi::IReference__1_WRTThickness *thickness = nullptr;
  makeReference<Thickness>(&thickness, WRTThickness{1, 2, 3, 4});
  id<WRTIReference__1_WRTThickness_Bridge> thicknessBridge =
      [WRTIReference__1_WRTThickness_Bridge bridgeTransfer:thickness];
  EXPECT_TRUE(same(WRTThickness{1, 2, 3, 4}, [thicknessBridge getValueWithError:&error]));
  EXPECT_EQ(nil, error);

  boxed = [Values createDoubleWithValue:2.5 error:&error];
  WRTIUnknownRelease(
      [[WRTIReference__1_WRTDOUBLE_Bridge cast:boxed] _WRTIReference__1_WRTDOUBLEWithError:&error]);
  boxed = [Values createBooleanWithValue:true error:&error];
  WRTIUnknownRelease([[WRTIReference__1_WRTboolean_Bridge cast:boxed]
      _WRTIReference__1_WRTbooleanWithError:&error]);
  EXPECT_EQ(nil, error);
}

/// The table of an object that keeps the value of whatever reference any member gets. It is never
/// counted.
struct Receiver {
  Receiver() {
    std::ranges::fill(table, reinterpret_cast<void *>(+[](void *, void *arg) WRT_ABI -> HRESULT {
                        if (!arg)
                          return status::kPointer;
                        return static_cast<abi::IReference__1_WRTTimeSpan *>(arg)->get_Value(
                            &received);
                      }));
    table[0] =
        reinterpret_cast<void *>(+[](void *self, const GUID *, void **result) WRT_ABI -> HRESULT {
          *result = self;
          return 0;
        });
    table[1] = table[2] = reinterpret_cast<void *>(+[](void *) WRT_ABI -> uint32_t { return 1; });
  }

  void **lpVtbl = table;
  void *table[100];
  static inline WRTTimeSpan received;
};

// What a factory makes is asked for the reference that a member takes.
void passedReferences() {
  WRTAppointmentBridge *appointment = [WRTAppointmentBridge bridge:&lasting<Receiver>()];
  NSError *error = staleErrorOfCaller();
  const id boxed = [Values createTimeSpanWithValue:WRTTimeSpan{8} error:nullptr];
  [appointment setReminderWithValue:boxed error:&error];
  EXPECT_EQ(nil, error);
  EXPECT_EQ(8, Receiver::received.Duration);
  Receiver::received = {};
  [appointment setReminderWithValue:[WRTIReference__1_WRTTimeSpan_Bridge cast:boxed] error:&error];
  EXPECT_EQ(nil, error);
  EXPECT_EQ(8, Receiver::received.Duration);
  const id other = [Values createInt32WithValue:8 error:nullptr];
  [appointment setReminderWithValue:other error:&error];
  EXPECT_EQ(kNoInterface, [error code]);
}

// No exception gets as far as the library.
void noMemory() {
  if (!kObjectsCanLack) {
    std::puts(
        "skipped: boxing.scalar.any.no_memory, which this sanitizer leaves no way to arrange");
    return;
  }
  EXPECT_DEATH(
      {
        failNext(Lack::Object);
        [Values createInt32WithValue:1 error:nullptr];
      },
      "no memory for [0-9]+ bytes");
}

std::string classNameOf(id boxed) {
  StringHolder name;
  static_cast<abi::IInspectable *>([boxed inner])->GetRuntimeClassName(name.put());
  return {name.view().begin(), name.view().end()};
}

void classNames() {
  abi::IReference__1_WRTColor *color = nullptr;
  makeReference<Struct<WRTColor, "Windows.UI.Color", UInt8, UInt8, UInt8, UInt8>>(&color, {});
  EXPECT_EQ("Windows.Foundation.IReference`1<Windows.UI.Color>",
            classNameOf([WRTIReference__1_WRTColor_Bridge bridgeTransfer:color]));
  EXPECT_EQ("Windows.Foundation.IReference`1<Int32>",
            classNameOf([Values createInt32WithValue:5 error:nullptr]));
  EXPECT_EQ("Windows.Foundation.IReference`1<String>",
            classNameOf([Values createStringWithValue:@"" error:nullptr]));
  EXPECT_EQ("Windows.Foundation.IReferenceArray`1<Object>",
            classNameOf([Values createInspectableArrayWithValue:@[] error:nullptr]));
}

// A component reads arrays through references too.
void referenceArrays() {
  std::array<int, 3> values{1, -2, 3};
  id boxed = [Values createInt32ArrayWithValueSize:3 value:values.data() error:nullptr];
  const auto array =
      ComPtr(static_cast<abi::IInspectable *>([boxed inner])).as<IReferenceArray<Int32>>();
  ASSERT_TRUE(array);
  uint32_t count = 0;
  int *read = nullptr;
  EXPECT_EQ(status::kOk, array->get_Value(&count, &read));
  ASSERT_EQ(3u, count);
  EXPECT_EQ(-2, read[1]);
  WRTTaskMemFree(read);
}

const Cell cells[] = {
    {"boxing.scalar.values.normal", values},
    {"boxing.scalar.strings.normal", strings},
    {"boxing.scalar.objects.normal", objects},
    {"boxing.scalar.any.wrong_type", wrongType},
    {"boxing.scalar.any.no_memory", noMemory},
    {"boxing.scalar.numbers.converted", conversions},
    {"boxing.array.values.normal", arrays},
    {"boxing.array.strings.normal", stringArrays},
    {"boxing.array.objects.normal", objectArrays},
    {"boxing.reference.each.normal", references},
    {"boxing.reference.passed.normal", passedReferences},
    {"boxing.reference.array.normal", referenceArrays},
    {"boxing.value.class_name.normal", classNames},
};

} // namespace

} // namespace wrt::test
