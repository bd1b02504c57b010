// Numbers and structures: by value, through pointers, as results, and as C arrays.

#include "tests/matrix/Fixture.h"

#include <WRTBridge.h>

#include <climits>

namespace wrt::test {

namespace {

const MemberCell single("scalar.all.int32.normal", [](Bridge bridge) {
  for (int value : {0, 1, -1, INT_MIN, INT_MAX}) {
    script().integer = value;
    [bridge inPrimitiveWithX:value error:nullptr];
    int out = 7;
    [bridge outPrimitiveWithX:&out error:nullptr];
    EXPECT_EQ(value, out);
    EXPECT_EQ(value, [bridge returnPrimitiveWithError:nullptr]);
    EXPECT_EQ(
        (Crossings{"InPrimitive " + std::to_string(value), "OutPrimitive", "ReturnPrimitive"}),
        takeCrossings());
  }
});

const MemberCell poisoned("scalar.out.int32.poisoned", [](Bridge bridge) {
  script().status = kFailure;
  script().poisons = true;
  int value = 0;
  EXPECT_FAILS(kFailure, [bridge outPrimitiveWithX:&value error:&failure]);
  EXPECT_EQ(static_cast<int>(0xCCCCCCCC), value) << "the pointer is the caller's own";
});

const MemberCell structure("structure.all.by_value.normal", [](Bridge bridge) {
  [bridge inStructWithArg:WRTTestStruct{INT_MIN, 7} error:nullptr];
  WRTTestStruct out{};
  [bridge outStructWithArg:&out error:nullptr];
  EXPECT_EQ("{3, -4}", describe(out));
  EXPECT_EQ("{3, -4}", describe([bridge returnStructWithError:nullptr]));
  EXPECT_EQ((Crossings{"InStruct {-2147483648, 7}", "OutStruct", "ReturnStruct"}), takeCrossings());
});

/// C arrays of `kind`; `made` are the elements that the component hands out.
template <class T>
void checkArrays(Bridge bridge, const std::string &kind, const std::string &made) {
  const auto text = [](int count, const T *values) {
    std::string all;
    for (int i = 0; i < count; ++i)
      all += (i ? ", " : "") + describe(values[i]);
    return all;
  };
  NSError **const none = nullptr;
  T values[5];
  for (int i = 0; i < 5; ++i)
    values[i] = makeElement(i + 4, values);
  const std::string last = describe(values[3]);
  for (int count : {3, 0}) {
    send(bridge, "in" + kind + "ArrayWithCount:arr:error:", count, values, none);
    EXPECT_EQ(Crossings{"In" + kind + "Array [" + text(count, values) + "]"}, takeCrossings());
  }
  for (const std::string out : {"return", "out"}) {
    int count = 0;
    T *block = nullptr;
    send(bridge, out + kind + "ArrayWithCount:arr:error:", &count, &block, none);
    EXPECT_EQ(made, text(count, block));
    WRTTaskMemFree(block); // the caller's, not the bridge's
    const std::string fill = out + kind + "ArrayPreallocatedWithSize:count:arr:error:";
    send(bridge, fill, 5, &count, values, none);
    EXPECT_EQ(3, count);
    EXPECT_EQ(made + ", " + last, text(4, values)) << "the last is not delivered";
    send(bridge, fill, 2, &count, values, none);
    EXPECT_EQ(2, count);
  }
}

const MemberCell arrays("scalar.all.array.normal",
                        [](Bridge bridge) { checkArrays<int>(bridge, "Primitive", "1, 2, 3"); });

const MemberCell structureArrays("structure.all.array.normal", [](Bridge bridge) {
  checkArrays<WRTTestStruct>(bridge, "Struct", "{1, -1}, {2, -2}, {3, -3}");
});

const MemberCell noAllocation("scalar.all.any.no_allocation", [] {
  Bridge bridge = newBridge([WRTTestInterfaceBridge class]);
  int values[3] = {};
  int count = 0;
  PlatformTrace trace;
  [bridge inPrimitiveWithX:1 error:nullptr];
  [bridge inPrimitiveArrayWithCount:3 arr:values error:nullptr];
  [bridge outPrimitiveArrayPreallocatedWithSize:3 count:&count arr:values error:nullptr];
  [bridge returnStructWithError:nullptr];
  EXPECT_EQ("WRTIUnknownRelease WRTIUnknownRelease WRTIUnknownRelease WRTIUnknownRelease",
            trace.names())
      << "the interface, once a call";
});

} // namespace

} // namespace wrt::test
