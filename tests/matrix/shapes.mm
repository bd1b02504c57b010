// Shapes that the test interfaces do not have: every width of number, booleans, spilled arguments,
// bulk reads. The members are declared here, over an object whose table the test fills.

#include "tests/matrix/Fixture.h"

#include "marshal/Array.h"
#include "marshal/Call.h"
#include "marshal/Delegate.h"
#include "marshal/FilledArray.h"
#include "marshal/String.h"
#include "marshal/Value.h"
#include "platform/linux/string/HString.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <sstream>

namespace wrt::test {

namespace {

/// An object with one function, at slot 6.
class OneFunction {
public:
  template <class Function>
  explicit OneFunction(Function *function) {
    table_[6] = reinterpret_cast<void *>(function);
    instance = this;
  }
  ~OneFunction() { instance = nullptr; }

  static void *interface(id, NSError **) {
    instance->object_.AddRef();
    return &instance->lpVtbl_;
  }
  static HRESULT WRT_ABI noInterface(void *, const GUID *, void **) { return kNoInterface; }
  static uint32_t WRT_ABI count(void *) { return 1; }

private:
  static inline OneFunction *instance = nullptr;

  void *table_[7] = {reinterpret_cast<void *>(&noInterface), reinterpret_cast<void *>(&count),
                     reinterpret_cast<void *>(&count)};
  void **lpVtbl_ = table_;
  ProbeObject object_;
};

template <class Shape>
constexpr Member<Shape> kMember{OneFunction::interface, 6};

template <class T>
T received;

template <class T>
HRESULT WRT_ABI echo(void *, T value, T *result) {
  received<T> = *result = value;
  return 0;
}

template <class T>
void roundTrip(std::initializer_list<T> values) {
  const auto bytes = [](T value) { return std::bit_cast<std::array<uint8_t, sizeof(T)>>(value); };
  OneFunction object(&echo<T>);
  for (T value : values) {
    const T result = call(nil, kMember<Value<T>(Value<T>)>, value, nullptr);
    EXPECT_EQ(bytes(value), bytes(result));
    EXPECT_EQ(bytes(value), bytes(received<T>));
  }
}

template <class T>
void roundTripLimits() {
  using Limits = std::numeric_limits<T>;
  roundTrip<T>({0, 1, Limits::lowest(), Limits::max()});
}

const Cell widths("scalar.all.every_width.normal", [] {
  roundTripLimits<uint8_t>();
  roundTripLimits<int16_t>();
  roundTripLimits<uint16_t>();
  roundTripLimits<uint32_t>();
  roundTripLimits<long long>();
  roundTripLimits<unsigned long long>();
  roundTrip<float>({-0.0f, NAN, INFINITY, 1e-45f});
  roundTrip<double>({-0.0, NAN, -INFINITY, 5e-324});
});

const Cell booleans("boolean.all.any_byte.normal", [] {
  static unsigned char answer;
  static bool received;
  OneFunction object(+[](void *, bool value, unsigned char *result) WRT_ABI -> HRESULT {
    received = value;
    *result = answer;
    return 0;
  });
  for (unsigned char byte : {0, 1, 2, 0x80, 0xCC, 0xFF}) {
    answer = byte;
    const bool result = call(nil, kMember<Boolean(Boolean)>, true, nullptr);
    unsigned char stored;
    std::memcpy(&stored, &result, 1);
    EXPECT_EQ(byte ? 1 : 0, stored) << "exactly 1 for any byte but 0";
    EXPECT_TRUE(received);
  }
});

struct Pair {
  float x;
  float y;
};

const Cell spills("scalar.in.spilled.normal", [] {
  static std::string received;
  using Shape = Value<double>(Value<int>, Value<long long>, Value<float>, Boolean, Value<GUID>,
                              Value<Pair>, Value<double>, Value<short>, Value<long long>);
  OneFunction object(+[](void *, int a, long long b, float c, bool d, GUID e, Pair f, double g,
                         short h, long long i, double *result) WRT_ABI -> HRESULT {
    std::ostringstream text;
    text << a << ' ' << b << ' ' << c << ' ' << d << ' ' << e.Data1 << ' ' << int(e.Data4[7]) << ' '
         << f.x << ' ' << f.y << ' ' << g << ' ' << h << ' ' << i;
    received = text.str();
    *result = 0.5;
    return 0;
  });
  const GUID guid = {9, 8, 7, {1, 2, 3, 4, 5, 6, 7, 8}};
  EXPECT_EQ(0.5, call(nil, kMember<Shape>, -1, 1ll << 40, 1.5f, true, guid, Pair{2.5f, 3.5f}, -4.25,
                      static_cast<short>(-7), -1ll, nullptr));
  EXPECT_EQ("-1 1099511627776 1.5 1 9 8 2.5 3.5 -4.25 -7 -1", received);
});

// A bulk read leaves the strings that it converts to WinRT's side.
const Cell bulkRead("string.return.bulk_read.normal", [] {
  static uint32_t delivered;
  using Shape = BulkRead<StringElements>(Value<uint32_t>, Capacity<uint32_t>);
  OneFunction object(+[](void *, uint32_t start, uint32_t capacity, HSTRING *block,
                         uint32_t *actual) WRT_ABI -> HRESULT {
    for (uint32_t i = 0; i < std::min(capacity, delivered); ++i)
      makeString(std::u16string(start, u'x'), &block[i]);
    *actual = delivered;
    return start < 9 ? 0 : kFailure;
  });
  expectLeftover({.strings = 3});
  delivered = 2;
  NSArray *read = call(nil, kMember<Shape>, 2u, 5u, nullptr);
  EXPECT_TRUE([read isKindOfClass:[NSMutableArray class]]);
  EXPECT_EQ("xx xx", joined(read));
  delivered = 0;
  EXPECT_EQ(0u, [call(nil, kMember<Shape>, 1u, 0u, nullptr) count])
      << "an empty range is an empty array";
  delivered = 1000;
  EXPECT_EQ("x", joined(call(nil, kMember<Shape>, 1u, 1u, nullptr))) << "never more than asked for";
  delivered = 0;
  PlatformTrace trace;
  EXPECT_FAILS(kFailure, call(nil, kMember<Shape>, 9u, 1u, &failure));
  EXPECT_EQ("WRTTaskMemAlloc WRTTaskMemFree WRTIUnknownRelease", trace.names());
});

// The other strings whose handles stay on WinRT's side.
const Cell stringsHandedOut("string.out.any.handles", [] {
  expectLeftover({.strings = 3});
  OneFunction object(+[](void *, HSTRING *result)
                          WRT_ABI -> HRESULT { return makeString(u"text", result); });
  EXPECT_TRUE([call(nil, kMember<String()>, nullptr) isEqual:@"text"]);
  NSString *string = nil;
  call(nil, kMember<Void(Out<String>)>, &string, nullptr);
  EXPECT_TRUE([string isEqual:@"text"]);
  OneFunction filler(+[](void *, int, int *count, HSTRING *block) WRT_ABI -> HRESULT {
    *count = 1;
    return makeString(u"text", block);
  });
  EXPECT_EQ("text",
            joined(call(nil, kMember<ReturnedFill<StringElements>(Capacity<int>)>, 1, nullptr)));
});

/// An accessor that gives nothing and says nothing.
void *noInterface(id, NSError **) { return nullptr; }
/// One that says that it failed and gives something all the same, which is nobody's.
void *failingInterface(id, NSError **error) {
  *error = staleError();
  return reinterpret_cast<void *>(0xCCCCCCCC);
}
void *noDelegate(id, Retained<> &) { return nullptr; }

// A platform that succeeds with null.
const Cell nulls("frame.all.any.success_with_null", [] {
  static int calls;
  calls = 0;
  OneFunction object(+[](void *, void *) WRT_ABI -> HRESULT {
    ++calls;
    return 0;
  });
  NSError *const before = staleError();
  for (const Accessor accessor : {noInterface, failingInterface}) {
    const Member<Void(Pointer)> receiving{accessor, 6};
    NSError *error = before;
    call(nil, receiving, nullptr, &error);
    EXPECT_EQ(before, error) << "as any accessor that fails";
    const Member<Void(Object)> single{OneFunction::interface, 6, accessor};
    const Member<Void(Array<ObjectElements>)> array{OneFunction::interface, 6, accessor};
    const HRESULT status = accessor == noInterface ? kNoInterface : [before code];
    EXPECT_FAILS(status, call(nil, single, @"argument", &failure));
    EXPECT_FAILS(status, call(nil, array, @[ @"element" ], &failure));
  }
  EXPECT_EQ(0, calls);
  static constexpr Member<Void(Delegate)> delegating{OneFunction::interface, 6, noDelegate};
  NSError *error = before;
  call(nil, delegating, nil, &error);
  EXPECT_EQ(nil, error) << "a null delegate is passed on";
  EXPECT_EQ(1, calls);
});

// Elements are asked for one by one, and let go last to first, each as its cell stands then.
const Cell elementOrder("string.in.array.order", [] {
  static void *block;
  static std::vector<const void *> handles;
  constexpr auto &member = kMember<Void(Array<StringElements>)>;
  OneFunction object(+[](void *, int32_t count, HSTRING *cells) WRT_ABI -> HRESULT {
    block = cells;
    handles.assign(cells, cells + count);
    std::reverse(cells, cells + count);
    return 0;
  });
  PlatformTrace trace;
  ProbeArray *array = [[[ProbeArray alloc] init] autorelease];
  array->counts = {2};
  array->element = @"element";
  call(nil, member, array, nullptr);
  EXPECT_EQ("nnn0n1n", array->asked);
  ASSERT_EQ("WRTTaskMemAlloc WRTHSTRINGRelease WRTHSTRINGRelease WRTTaskMemFree WRTIUnknownRelease",
            trace.names());
  EXPECT_EQ(handles[0], trace.calls()[1].argument);
  EXPECT_EQ(handles[1], trace.calls()[2].argument);

  PlatformTrace ofNil;
  call(nil, member, nil, nullptr);
  EXPECT_EQ("WRTTaskMemAlloc WRTTaskMemFree WRTIUnknownRelease", ofNil.names());
  EXPECT_EQ(0u, ofNil.calls()[0].size);
  EXPECT_EQ(ofNil.calls()[0].argument, block) << "a block of no bytes, not null";
});

} // namespace

} // namespace wrt::test
