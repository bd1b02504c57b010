// Boxed values: property values and references.
#include "platform/linux/components/values/NumericConversion.h"

#include "tests/families/Families.h"

#include "platform/linux/components/values/Reference.h"

#include <WRTBridge.h>
#import <WRTObjcBridge/IReference.h>
#import <WRTObjcBridge/WRTIInspectableBridge.h>
#import <WRTObjcBridge/Windows.ApplicationModel.Appointments.h>
#import <WRTObjcBridge/Windows.Foundation.h>
#import <WRTObjcBridge/Windows.UI.h>
#include <abi/IReference.abi.h>

#import <objc/runtime.h>

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <optional>

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
});

const Cell wrongType("boxing.scalar.any.wrong_type", [] {
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
  for (Boxed boxed : {text, truth, character, [Values createEmptyWithError:nullptr]}) {
    EXPECT_EQ(0, [valueOf(boxed) getInt32WithError:&error]);
    EXPECT_TRUE(mismatch());
  }
  EXPECT_EQ(nil, [valueOf(number) getStringWithError:&error]);
  EXPECT_TRUE(mismatch());
  EXPECT_FALSE([valueOf(number) getBooleanWithError:&error]);
  EXPECT_TRUE(mismatch());
  unsigned int count = 5;
  int stale = 0;
  int *values = &stale;
  [valueOf(number) getInt32ArrayWithValueSize:&count value:&values error:&error];
  EXPECT_TRUE(mismatch());
  EXPECT_EQ(0u, count);
  EXPECT_EQ(nullptr, values);
});

/// What a boxed number is as another one; nothing where it does not fit.
template <class T>
std::optional<T> as(const char *name, id boxed) {
  NSError *error = nil;
  const T value = send<T>(valueOf(boxed), std::string("get") + name + "WithError:", &error);
  EXPECT_TRUE(error == nil || [error code] == kOverflow);
  return error ? std::nullopt : std::optional(value);
}

// Numbers become other numbers as far as they fit.
const Cell conversions("boxing.scalar.numbers.converted", [] {
  const auto number = [](double value) -> id {
    return static_cast<id>([Values createDoubleWithValue:value error:nullptr]);
  };
  EXPECT_EQ(255, as<unsigned char>("UInt8", number(255.4)));
  EXPECT_EQ(std::nullopt, as<unsigned char>("UInt8", number(255.5)));
  EXPECT_EQ(2, as<int>("Int32", number(2.5))) << "halves to the even one";
  EXPECT_EQ(-4, as<int>("Int32", number(-3.5)));
  EXPECT_EQ(INT64_MIN, as<long long>("Int64", number(-0x1p63)));
  EXPECT_EQ(std::nullopt, as<long long>("Int64", number(0x1p63)));
  EXPECT_EQ(0x8000000000000000u, as<unsigned long long>("UInt64", number(0x1p63)));
  EXPECT_EQ(std::nullopt, as<unsigned long long>("UInt64", number(0x1p64)));
  EXPECT_EQ(std::nullopt, as<short>("Int16", number(NAN)));
  EXPECT_EQ(std::nullopt, as<unsigned short>("UInt16", number(-1)));
  EXPECT_EQ(std::nullopt, as<float>("Single", number(DBL_MAX)));
  EXPECT_EQ(INFINITY, as<float>("Single", number(INFINITY)));

  id minusOne = static_cast<id>([Values createInt32WithValue:-1 error:nullptr]);
  EXPECT_EQ(-1, as<short>("Int16", minusOne));
  EXPECT_EQ(-1.0, as<double>("Double", minusOne));
  EXPECT_EQ(std::nullopt, as<unsigned long long>("UInt64", minusOne));
  id most = static_cast<id>([Values createUInt64WithValue:UINT64_MAX error:nullptr]);
  EXPECT_EQ(std::nullopt, as<long long>("Int64", most));
  EXPECT_EQ(0x1p64f, as<float>("Single", most));
});

// The caller's array is emptied first; the block that came is not freed. A failure leaves it alone.
const Cell stringArrays("boxing.array.strings.normal", [] {
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
});

// Of a scalar and of a structure; every instance has its own identifier in exhaustive_tests.
const Cell references("boxing.reference.each.normal", [] {
  NSError *error = staleErrorOfCaller();
  id boxed = [Values createSingleWithValue:1.5f error:&error];
  EXPECT_EQ(1.5f, [[WRTIReference__1_WRTFLOAT_Bridge cast:boxed] getValueWithError:&error]);
  id wrong = [WRTIReference__1_WRTINT32_Bridge cast:boxed];
  NSError *const stale = staleErrorOfCaller();
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
