// Boxed values: property values and references.
#include "tests/families/Families.h"

#include "platform/linux/components/values/NumericConversion.h"
#include "platform/linux/components/values/Reference.h"

#include <WRTBridge.h>
#import <WRTObjcBridge/IReference.h>
#import <WRTObjcBridge/WRTIInspectableBridge.h>
#import <WRTObjcBridge/Windows.ApplicationModel.Appointments.h>
#import <WRTObjcBridge/Windows.Foundation.h>
#import <WRTObjcBridge/Windows.UI.h>
#include <abi/IReference.abi.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cfloat>
#include <cmath>

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
  using Bytes = std::array<uint8_t, sizeof(T)>;
  return std::bit_cast<Bytes>(left) == std::bit_cast<Bytes>(right);
}

/// Boxes each of `values` and reads it again.
template <class T>
void roundTrip(int type, const std::string &name, std::initializer_list<T> values) {
  SCOPED_TRACE(name);
  for (const T &value : values) {
    NSError *error = staleError();
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

const Cell values("boxing.scalar.values.normal", [] {
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
});

const Cell objects("boxing.scalar.objects.normal", [] {
  NSError *error = staleError();
  Boxed inner = [Values createEmptyWithError:&error];
  EXPECT_EQ(0, [valueOf(inner) getTypeWithError:&error]);
  EXPECT_TRUE([static_cast<id>(inner) isEqual:[Values createInspectableWithValue:inner
                                                                           error:&error]]);
  EXPECT_EQ(nil, error);
  EXPECT_FAILS(status::kInvalidArgument, [Values createInspectableWithValue:nil error:&failure]);
  const id stranger = strangerOf([WRTIInspectableBridge class]);
  EXPECT_FAILS(kNoInterface, [Values createInspectableWithValue:stranger error:&failure]);
});

const Cell wrongType("boxing.scalar.any.wrong_type", [] {
  for (Boxed boxed :
       {[Values createStringWithValue:@"17" error:nullptr],
        [Values createBooleanWithValue:true error:nullptr],
        [Values createChar16WithValue:17 error:nullptr], [Values createEmptyWithError:nullptr]})
    EXPECT_FAILS(kTypeMismatch, [valueOf(boxed) getInt32WithError:&failure]);
  WRTIPropertyValueBridge *number = valueOf([Values createInt32WithValue:17 error:nullptr]);
  EXPECT_FAILS(kTypeMismatch, [number getStringWithError:&failure]);
  EXPECT_FAILS(kTypeMismatch, [number getBooleanWithError:&failure]);
  unsigned int count = 5;
  int stale = 0;
  int *values = &stale;
  EXPECT_FAILS(kTypeMismatch, [number getInt32ArrayWithValueSize:&count
                                                           value:&values
                                                           error:&failure]);
  EXPECT_EQ(0u, count);
  EXPECT_EQ(nullptr, values);
});

// Numbers become other numbers as far as they fit; how far that is, the fuzzer `values` sees.
const Cell conversions("boxing.scalar.numbers.converted", [] {
  for (const auto &[number, whole] : {std::pair{2.5, 2}, {-3.5, -4}, {INT32_MIN, INT32_MIN}}) {
    WRTIPropertyValueBridge *boxed = valueOf([Values createDoubleWithValue:number error:nullptr]);
    EXPECT_EQ(whole, [boxed getInt32WithError:nullptr]);
    EXPECT_EQ(whole, [boxed getInt64WithError:nullptr]);
    EXPECT_EQ(static_cast<float>(number), [boxed getSingleWithError:nullptr]);
  }
  WRTIPropertyValueBridge *minusOne = valueOf([Values createInt32WithValue:-1 error:nullptr]);
  EXPECT_EQ(-1, [minusOne getInt16WithError:nullptr]);
  EXPECT_EQ(-1.0, [minusOne getDoubleWithError:nullptr]);
  EXPECT_FAILS(kOverflow, [minusOne getUInt8WithError:&failure]);
  EXPECT_FAILS(kOverflow, [minusOne getUInt16WithError:&failure]);
  EXPECT_FAILS(kOverflow, [minusOne getUInt64WithError:&failure]);
});

// The caller's array is emptied first; the block that came is not freed. A failure leaves it alone.
const Cell stringArrays("boxing.array.strings.normal", [] {
  expectLeftover({.taskBlocks = 1}); // that of the array with elements; an empty one has none
  NSArray *texts = @[ @"one", @"", @"zwölf 😀" ];
  NSError *error = staleError();
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
  WRTIPropertyValueBridge *number = valueOf([Values createInt32WithValue:1 error:nullptr]);
  EXPECT_FAILS(kTypeMismatch, [number getStringArrayWithValue:filled error:&failure]);
  failNextDuplicate(status::kOutOfMemory, 1);
  EXPECT_FAILS(status::kOutOfMemory, [valueOf(boxed) getStringArrayWithValue:filled
                                                                       error:&failure]);
  EXPECT_TRUE([filled isEqual:@[ @"stays" ]]);
});

// Of a scalar and of a structure; every instance has its own identifier in exhaustive_tests.
const Cell references("boxing.reference.each.normal", [] {
  NSError *error = staleError();
  id boxed = [Values createSingleWithValue:1.5f error:&error];
  EXPECT_EQ(1.5f, [[WRTIReference__1_WRTFLOAT_Bridge cast:boxed] getValueWithError:&error]);
  id wrong = [WRTIReference__1_WRTINT32_Bridge cast:boxed];
  NSError *const stale = staleError();
  error = stale;
  EXPECT_EQ(0, [static_cast<WRTIReference__1_WRTINT32_Bridge *>(wrong) getValueWithError:&error]);
  EXPECT_EQ(stale, error) << "a reference to another type lacks the interface";

  using Color = types::Color;
  abi::IReference__1_WRTColor *color = nullptr;
  makeReference<Color>(&color, WRTColor{1, 2, 3, 4});
  id<WRTIReference__1_WRTColor_Bridge> colorBridge =
      [WRTIReference__1_WRTColor_Bridge bridgeTransfer:color];
  EXPECT_TRUE(same(WRTColor{1, 2, 3, 4}, [colorBridge getValueWithError:&error]));
  EXPECT_EQ(20,
            [[WRTIPropertyValueBridge cast:static_cast<id>(colorBridge)] getTypeWithError:&error]);

  EXPECT_EQ(nil, error);
});

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
const Cell passedReferences("boxing.reference.passed.normal", [] {
  WRTAppointmentBridge *appointment = [WRTAppointmentBridge bridge:&lasting<Receiver>()];
  NSError *error = staleError();
  const id boxed = [Values createTimeSpanWithValue:WRTTimeSpan{8} error:nullptr];
  for (id reference : {boxed, static_cast<id>([WRTIReference__1_WRTTimeSpan_Bridge cast:boxed])}) {
    Receiver::received = {};
    [appointment setReminderWithValue:reference error:&error];
    EXPECT_EQ(nil, error);
    EXPECT_EQ(8, Receiver::received.Duration);
  }
  const id other = [Values createInt32WithValue:8 error:nullptr];
  EXPECT_FAILS(kNoInterface, [appointment setReminderWithValue:other error:&failure]);
});

// No exception gets as far as the library.
const Cell noMemory("boxing.scalar.any.no_memory", [] {
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
});

} // namespace

} // namespace wrt::test
