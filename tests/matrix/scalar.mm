// Numbers and structures: by value, through pointers, as results, and as C arrays.

#include "tests/matrix/Fixture.h"

#include <WRTBridge.h>

#include <climits>
#include <utility>

namespace wrt::test {

namespace {

void scalarIn() {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    NSError *error = staleError();
    for (int value : {0, 1, -1, INT_MIN, INT_MAX})
      [bridge inPrimitiveWithX:value error:&error];
    EXPECT_EQ(nil, error) << "success clears the caller's error";
    EXPECT_EQ((Crossings{"InPrimitive 0", "InPrimitive 1", "InPrimitive -1",
                         "InPrimitive -2147483648", "InPrimitive 2147483647"}),
              takeCrossings());
  });
}

void scalarOut() {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    int value = 0;
    [bridge outPrimitiveWithX:&value error:nullptr];
    EXPECT_EQ(42, value);
    script().status = kFailure;
    script().poisons = true;
    NSError *error = nil;
    [bridge outPrimitiveWithX:&value error:&error];
    EXPECT_EQ(static_cast<int>(0xCCCCCCCC), value) << "the pointer is the caller's own";
    EXPECT_EQ(kFailure, [error code]);
  });
}

void scalarReturned() {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    for (int value : {0, 42, INT_MIN, INT_MAX}) {
      script().integer = value;
      EXPECT_EQ(value, [bridge returnPrimitiveWithError:nullptr]);
    }
    script().status = kFailure;
    script().poisons = true;
    NSError *error = nil;
    EXPECT_EQ(0, [bridge returnPrimitiveWithError:&error]);
    EXPECT_EQ(kFailure, [error code]);
  });
}

void scalarArrayIn() {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    int values[] = {5, -6, 7};
    [bridge inPrimitiveArrayWithCount:3 arr:values error:nullptr];
    [bridge inPrimitiveArrayWithCount:0 arr:nullptr error:nullptr];
    EXPECT_EQ((Crossings{"InPrimitiveArray [5, -6, 7]", "InPrimitiveArray []"}), takeCrossings());
  });
}

void scalarArrayOut() {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    for (bool returned : {false, true}) {
      int count = 0;
      int *values = nullptr;
      if (returned)
        [bridge returnPrimitiveArrayWithCount:&count arr:&values error:nullptr];
      else
        [bridge outPrimitiveArrayWithCount:&count arr:&values error:nullptr];
      ASSERT_EQ(3, count);
      EXPECT_EQ(1, values[0]);
      EXPECT_EQ(3, values[2]);
      WRTTaskMemFree(values); // the caller's, not the bridge's
    }
  });
}

void scalarArrayPreallocated() {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    int values[5] = {9, 9, 9, 9, 9};
    int count = 0;
    [bridge outPrimitiveArrayPreallocatedWithSize:5 count:&count arr:values error:nullptr];
    EXPECT_EQ(3, count);
    EXPECT_EQ(3, values[2]);
    EXPECT_EQ(9, values[3]) << "not delivered";
    [bridge returnPrimitiveArrayPreallocatedWithSize:2 count:&count arr:values error:nullptr];
    EXPECT_EQ(2, count);
    EXPECT_EQ((Crossings{"OutPrimitiveArrayPreallocated 5", "ReturnPrimitiveArrayPreallocated 2"}),
              takeCrossings());
  });
}

void structureByValue() {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    [bridge inStructWithArg:WRTTestStruct{INT_MIN, 7} error:nullptr];
    WRTTestStruct out{};
    [bridge outStructWithArg:&out error:nullptr];
    EXPECT_EQ(3, out.x);
    EXPECT_EQ(-4, out.y);
    const WRTTestStruct returned = [bridge returnStructWithError:nullptr];
    EXPECT_EQ(3, returned.x);
    EXPECT_EQ(-4, returned.y);
    EXPECT_EQ((Crossings{"InStruct {-2147483648, 7}", "OutStruct", "ReturnStruct"}),
              takeCrossings());
  });
}

void structureArrays() {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    WRTTestStruct values[4] = {{1, 2}, {3, 4}, {8, 8}, {8, 8}};
    [bridge inStructArrayWithCount:2 arr:values error:nullptr];
    EXPECT_EQ((Crossings{"InStructArray [{1, 2}, {3, 4}]"}), takeCrossings());

    int count = 0;
    [bridge outStructArrayPreallocatedWithSize:4 count:&count arr:values error:nullptr];
    EXPECT_EQ(3, count);
    EXPECT_EQ(-3, values[2].y);
    EXPECT_EQ(8, values[3].y);
    [bridge returnStructArrayPreallocatedWithSize:1 count:&count arr:values error:nullptr];
    EXPECT_EQ(1, count);

    WRTTestStruct *block = nullptr;
    [bridge outStructArrayWithCount:&count arr:&block error:nullptr];
    ASSERT_EQ(3, count);
    EXPECT_EQ(3, block[2].x);
    WRTTaskMemFree(std::exchange(block, nullptr));
    count = 0;
    [bridge returnStructArrayWithCount:&count arr:&block error:nullptr];
    ASSERT_EQ(3, count);
    EXPECT_EQ(-1, block[0].y);
    WRTTaskMemFree(block);
  });
}

void noAllocation() {
  id<WRTTestInterfaceBridge> bridge = newBridge([WRTTestInterfaceBridge class]);
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
}

const Cell cells[] = {
    {"scalar.in.int32.normal", scalarIn},
    {"scalar.out.int32.poisoned", scalarOut},
    {"scalar.return.int32.poisoned", scalarReturned},
    {"scalar.in.array.normal", scalarArrayIn},
    {"scalar.out.array.normal", scalarArrayOut},
    {"scalar.out.array_preallocated.normal", scalarArrayPreallocated},
    {"structure.all.by_value.normal", structureByValue},
    {"structure.all.array.normal", structureArrays},
    {"scalar.all.any.no_allocation", noAllocation},
};

} // namespace

} // namespace wrt::test
