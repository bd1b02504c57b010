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

#include <algorithm>
#include <array>
#include <cfloat>
#include <cmath>
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

/// Boxes each of `values` and reads it again, as it is and through its reference.
template <class T, class Create, class Get>
void roundTrip(int type, bool isNumeric, std::initializer_list<T> values, Create create, Get get) {
  SCOPED_TRACE(type);
  for (const T &value : values) {
    NSError *error = staleErrorOfCaller();
    Boxed boxed = create(value, &error);
    ASSERT_NE(nil, boxed);
    EXPECT_EQ(nil, error);
    EXPECT_EQ([WRTIInspectableBridge class], [static_cast<id>(boxed) class]);
    WRTIPropertyValueBridge *read = valueOf(boxed);
    EXPECT_EQ(type, [read getTypeWithError:&error]);
    EXPECT_EQ(isNumeric, [read getIsNumericScalarWithError:&error]);
    EXPECT_TRUE(same(value, get(read, &error)));
    EXPECT_EQ(nil, error);
  }
}

void numbers() {
  roundTrip<unsigned char>(
      1, true, {0, 0xFF}, [](auto v, auto e) { return [Values createUInt8WithValue:v error:e]; },
      [](auto b, auto e) { return [b getUInt8WithError:e]; });
  roundTrip<short>(
      2, true, {INT16_MIN, INT16_MAX},
      [](auto v, auto e) { return [Values createInt16WithValue:v error:e]; },
      [](auto b, auto e) { return [b getInt16WithError:e]; });
  roundTrip<unsigned short>(
      3, true, {0, UINT16_MAX},
      [](auto v, auto e) { return [Values createUInt16WithValue:v error:e]; },
      [](auto b, auto e) { return [b getUInt16WithError:e]; });
  roundTrip<int>(
      4, true, {INT32_MIN, INT32_MAX},
      [](auto v, auto e) { return [Values createInt32WithValue:v error:e]; },
      [](auto b, auto e) { return [b getInt32WithError:e]; });
  roundTrip<unsigned int>(
      5, true, {0, UINT32_MAX},
      [](auto v, auto e) { return [Values createUInt32WithValue:v error:e]; },
      [](auto b, auto e) { return [b getUInt32WithError:e]; });
  roundTrip<long long>(
      6, true, {INT64_MIN, INT64_MAX},
      [](auto v, auto e) { return [Values createInt64WithValue:v error:e]; },
      [](auto b, auto e) { return [b getInt64WithError:e]; });
  roundTrip<unsigned long long>(
      7, true, {0, UINT64_MAX},
      [](auto v, auto e) { return [Values createUInt64WithValue:v error:e]; },
      [](auto b, auto e) { return [b getUInt64WithError:e]; });
  roundTrip<float>(
      8, true, {-0.0f, FLT_MAX, INFINITY, NAN},
      [](auto v, auto e) { return [Values createSingleWithValue:v error:e]; },
      [](auto b, auto e) { return [b getSingleWithError:e]; });
  roundTrip<double>(
      9, true, {-0.0, DBL_MAX, DBL_TRUE_MIN, static_cast<double>(NAN)},
      [](auto v, auto e) { return [Values createDoubleWithValue:v error:e]; },
      [](auto b, auto e) { return [b getDoubleWithError:e]; });
}

void structures() {
  roundTrip<unsigned short>(
      10, false, {0, 0xD800, 0xFFFF},
      [](auto v, auto e) { return [Values createChar16WithValue:v error:e]; },
      [](auto b, auto e) { return [b getChar16WithError:e]; });
  roundTrip<bool>(
      11, false, {true, false},
      [](auto v, auto e) { return [Values createBooleanWithValue:v error:e]; },
      [](auto b, auto e) { return [b getBooleanWithError:e]; });
  roundTrip<WRTDateTime>(
      14, false, {{INT64_MIN}, {INT64_MAX}},
      [](auto v, auto e) { return [Values createDateTimeWithValue:v error:e]; },
      [](auto b, auto e) { return [b getDateTimeWithError:e]; });
  roundTrip<WRTTimeSpan>(
      15, false, {{-1}, {0x1122334455667788}},
      [](auto v, auto e) { return [Values createTimeSpanWithValue:v error:e]; },
      [](auto b, auto e) { return [b getTimeSpanWithError:e]; });
  roundTrip<GUID>(
      16, false, {abi::IAgileObject::kIid},
      [](auto v, auto e) { return [Values createGuidWithValue:v error:e]; },
      [](auto b, auto e) { return [b getGuidWithError:e]; });
  roundTrip<WRTPoint>(
      17, false, {{1, -2}}, [](auto v, auto e) { return [Values createPointWithValue:v error:e]; },
      [](auto b, auto e) { return [b getPointWithError:e]; });
  roundTrip<WRTSize>(
      18, false, {{3, 4}}, [](auto v, auto e) { return [Values createSizeWithValue:v error:e]; },
      [](auto b, auto e) { return [b getSizeWithError:e]; });
  roundTrip<WRTRect>(
      19, false, {{1, 2, 3, 4}},
      [](auto v, auto e) { return [Values createRectWithValue:v error:e]; },
      [](auto b, auto e) { return [b getRectWithError:e]; });
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
template <class T, class Create, class Get>
void arrayRoundTrip(int type, std::vector<T> values, Create create, Get get) {
  SCOPED_TRACE(type);
  for (unsigned int size : {0u, static_cast<unsigned int>(values.size())}) {
    NSError *error = staleErrorOfCaller();
    Boxed boxed = create(size, values.data(), &error);
    ASSERT_NE(nil, boxed);
    EXPECT_EQ(type, [valueOf(boxed) getTypeWithError:&error]);
    EXPECT_FALSE([valueOf(boxed) getIsNumericScalarWithError:&error]);
    unsigned int count = 99;
    T *read = nullptr;
    get(valueOf(boxed), &count, &read, &error);
    EXPECT_EQ(nil, error);
    ASSERT_EQ(size, count);
    for (unsigned int i = 0; i < size; ++i)
      EXPECT_TRUE(same(values[i], read[i]));
    WRTTaskMemFree(read);
  }
}

void arrays() {
  arrayRoundTrip<unsigned char>(
      1025, {1, 2, 0xFF},
      [](auto n, auto v, auto e) {
        return [Values createUInt8ArrayWithValueSize:n value:v error:e];
      },
      [](auto b, auto n, auto v, auto e) { [b getUInt8ArrayWithValueSize:n value:v error:e]; });
  arrayRoundTrip<short>(
      1026, {-1, 2},
      [](auto n, auto v, auto e) {
        return [Values createInt16ArrayWithValueSize:n value:v error:e];
      },
      [](auto b, auto n, auto v, auto e) { [b getInt16ArrayWithValueSize:n value:v error:e]; });
  arrayRoundTrip<int>(
      1028, std::vector<int>(1000, -7),
      [](auto n, auto v, auto e) {
        return [Values createInt32ArrayWithValueSize:n value:v error:e];
      },
      [](auto b, auto n, auto v, auto e) { [b getInt32ArrayWithValueSize:n value:v error:e]; });
  arrayRoundTrip<unsigned long long>(
      1031, {UINT64_MAX},
      [](auto n, auto v, auto e) {
        return [Values createUInt64ArrayWithValueSize:n value:v error:e];
      },
      [](auto b, auto n, auto v, auto e) { [b getUInt64ArrayWithValueSize:n value:v error:e]; });
  arrayRoundTrip<double>(
      1033, {1.5, -0.0},
      [](auto n, auto v, auto e) {
        return [Values createDoubleArrayWithValueSize:n value:v error:e];
      },
      [](auto b, auto n, auto v, auto e) { [b getDoubleArrayWithValueSize:n value:v error:e]; });
  arrayRoundTrip<unsigned char>(
      1035, {0, 1},
      [](auto n, auto v, auto e) {
        return [Values createBooleanArrayWithValueSize:n value:reinterpret_cast<bool *>(v) error:e];
      },
      [](auto b, auto n, auto v, auto e) {
        [b getBooleanArrayWithValueSize:n value:reinterpret_cast<bool **>(v) error:e];
      });
  arrayRoundTrip<GUID>(
      1040, {abi::IUnknown::kIid, abi::IInspectable::kIid},
      [](auto n, auto v, auto e) {
        return [Values createGuidArrayWithValueSize:n value:v error:e];
      },
      [](auto b, auto n, auto v, auto e) { [b getGuidArrayWithValueSize:n value:v error:e]; });
  arrayRoundTrip<WRTRect>(
      1043, {{1, 2, 3, 4}, {5, 6, 7, 8}},
      [](auto n, auto v, auto e) {
        return [Values createRectArrayWithValueSize:n value:v error:e];
      },
      [](auto b, auto n, auto v, auto e) { [b getRectArrayWithValueSize:n value:v error:e]; });
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
  Receiver receiver;
  WRTAppointmentBridge *appointment = [WRTAppointmentBridge bridge:&receiver];
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
    {"boxing.scalar.numbers.normal", numbers},
    {"boxing.scalar.structures.normal", structures},
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
