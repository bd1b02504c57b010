// Strings, single and in arrays.

#include "platform/linux/implement/StringHolder.h"
#include "tests/matrix/Fixture.h"

#import <WRTObjcBridge/WRTConversions.h>

namespace wrt::test {

namespace {

const Cell stringIn("string.in.single.normal", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    const implement::StringHolder lone(u"a\xD800");
    NSString *odd = WRTCreateNSStringFromHSTRING(lone.get());
    NSMutableString *mutableString = [NSMutableString stringWithString:@"mutable"];
    for (NSString *string in @[ @"plain", @"naïve 😀", odd, mutableString, @"" ])
      [bridge inStringWithArg:string error:nullptr];
    NSError *error = staleError();
    [bridge inStringWithArg:nil error:&error];
    EXPECT_EQ(nil, error);
    EXPECT_EQ((Crossings{"InString \"plain\"", "InString \"naïve 😀\"", "InString \"a?\"",
                         "InString \"mutable\"", "InString null", "InString null"}),
              takeCrossings());
  });
});

const Cell stringInCleanups("string.in.single.cleanups", [] {
  id<WRTTestInterfaceBridge> bridge = newBridge([WRTTestInterfaceBridge class]);
  for (HRESULT status : {HRESULT{0}, kFailure}) {
    script().status = status;
    PlatformTrace trace;
    [bridge inStringWithArg:@"text" error:nullptr];
    EXPECT_EQ("WRTHSTRINGRelease WRTIUnknownRelease", trace.names());
  }
  resetScript();
  PlatformTrace trace;
  [bridge inStringWithArg:nil error:nullptr];
  [bridge inStringWithArg:@"" error:nullptr];
  EXPECT_EQ("WRTIUnknownRelease WRTIUnknownRelease", trace.names()) << "null registers nothing";
});

const Cell stringOut("string.out.single.normal", [] {
  // Four strings in all whose handles the bridge does not release.
  expectLeftover({.strings = 4});
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    NSString *string = nil;
    [bridge outStringWithArg:&string error:nullptr];
    EXPECT_TRUE([string isEqual:@"out"]);
    EXPECT_TRUE([[bridge returnStringWithError:nullptr] isEqual:@"out"]);
    script().string = u"";
    EXPECT_EQ(0u, [[bridge returnStringWithError:nullptr] length]);
  });
});

const Cell stringArrayIn("string.in.array.normal", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    [bridge inStringArrayWithArr:@[ @"a", @"", @"c" ] error:nullptr];
    [bridge inStringArrayWithArr:@[] error:nullptr];
    [bridge inStringArrayWithArr:nil error:nullptr];
    EXPECT_EQ(
        (Crossings{"InStringArray [\"a\", null, \"c\"]", "InStringArray []", "InStringArray []"}),
        takeCrossings());
  });
});

// More than one batch of clean-ups, last registered first, the block after its elements.
const Cell stringArrayInCleanups("string.in.array.cleanups", [] {
  id<WRTTestInterfaceBridge> bridge = newBridge([WRTTestInterfaceBridge class]);
  for (NSUInteger count : {0u, 1u, 15u, 16u, 17u, 33u, 1000u}) {
    SCOPED_TRACE(count);
    NSMutableArray *strings = [NSMutableArray array];
    for (NSUInteger i = 0; i < count; ++i)
      [strings addObject:[NSString stringWithFormat:@"element %lu", (unsigned long)i]];
    PlatformTrace trace;
    [bridge inStringArrayWithArr:strings error:nullptr];
    const auto &calls = trace.calls();
    ASSERT_EQ(count + 3, calls.size());
    EXPECT_EQ("WRTTaskMemAlloc", calls[0].function);
    EXPECT_EQ(count * sizeof(void *), calls[0].size);
    for (NSUInteger i = 0; i < count; ++i)
      EXPECT_EQ("WRTHSTRINGRelease", calls[1 + i].function);
    EXPECT_EQ("WRTTaskMemFree", calls[count + 1].function);
    EXPECT_EQ(calls[0].argument, calls[count + 1].argument);
    EXPECT_EQ("WRTIUnknownRelease", calls[count + 2].function);
  }
});

const Cell stringArrayOut("string.out.array.normal", [] {
  // The element blocks are WinRT's and not freed: one a call, four calls a class.
  expectLeftover({.taskBlocks = 8});
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    NSMutableArray *array = [NSMutableArray arrayWithObject:@"before"];
    [bridge outStringArrayWithArr:array error:nullptr];
    EXPECT_EQ("0 1 2", joined(array));
    NSMutableArray *returned = [bridge returnStringArrayWithError:nullptr];
    EXPECT_TRUE([returned isKindOfClass:[NSMutableArray class]]);
    EXPECT_EQ("0 1 2", joined(returned));
    failNext(Lack::String);
    [bridge outStringArrayWithArr:array error:nullptr];
    EXPECT_EQ(" 1 2", joined(array)) << "what cannot be converted is empty";
    script().count = 0;
    [bridge outStringArrayWithArr:array error:nullptr];
    EXPECT_EQ(0u, [array count]);
  });
});

const Cell stringArrayPreallocated("string.out.array_preallocated.normal", [] {
  // The returned form alone leaves its elements' handles: two for each class.
  expectLeftover({.strings = 4});
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    NSMutableArray *array = [NSMutableArray arrayWithObject:@"before"];
    [bridge outStringArrayPreallocatedWithSize:5 arr:array error:nullptr];
    EXPECT_EQ("0 1 2", joined(array)) << "fewer than asked for";
    [bridge outStringArrayPreallocatedWithSize:0 arr:array error:nullptr];
    EXPECT_EQ(0u, [array count]);
    EXPECT_EQ("0 1", joined([bridge returnStringArrayPreallocatedWithSize:2 error:nullptr]));
  });
});

const Cell stringsFailing("string.all.any.failing", [] {
  forBothClasses([](id<WRTTestInterfaceBridge> bridge) {
    script().status = kFailure;
    script().poisons = true;
    NSString *string = @"untouched";
    NSError *error = nil;
    [bridge outStringWithArg:&string error:&error];
    EXPECT_TRUE([string isEqual:@"untouched"]);
    EXPECT_EQ(kFailure, [error code]);
    EXPECT_EQ(nil, [bridge returnStringWithError:&error]);
    NSMutableArray *array = [NSMutableArray arrayWithObject:@"before"];
    [bridge outStringArrayWithArr:array error:nullptr];
    [bridge outStringArrayPreallocatedWithSize:2 arr:array error:nullptr];
    EXPECT_EQ("before", joined(array));
    EXPECT_EQ(nil, [bridge returnStringArrayWithError:nullptr]);
    EXPECT_EQ(nil, [bridge returnStringArrayPreallocatedWithSize:2 error:nullptr]);
    [bridge inStringArrayWithArr:@[ @"a", @"b" ] error:&error];
    EXPECT_EQ(kFailure, [error code]);
  });
});

} // namespace

} // namespace wrt::test
