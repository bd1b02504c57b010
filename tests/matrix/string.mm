// Strings, single and in arrays.

#include "platform/linux/implement/StringHolder.h"
#include "tests/matrix/Fixture.h"

#import <WRTObjcBridge/WRTConversions.h>

namespace wrt::test {

namespace {

const MemberCell stringIn("string.in.single.normal", [](Bridge bridge) {
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

const MemberCell stringInCleanups("string.in.single.cleanups", [] {
  Bridge bridge = newBridge([WRTTestInterfaceBridge class]);
  for (HRESULT status : {kFailure, HRESULT{0}}) {
    script().status = status;
    PlatformTrace trace;
    [bridge inStringWithArg:@"text" error:nullptr];
    EXPECT_EQ("WRTHSTRINGRelease WRTIUnknownRelease", trace.names());
  }
  PlatformTrace trace;
  [bridge inStringWithArg:nil error:nullptr];
  [bridge inStringWithArg:@"" error:nullptr];
  EXPECT_EQ("WRTIUnknownRelease WRTIUnknownRelease", trace.names()) << "null registers nothing";
});

const MemberCell stringOut("string.out.single.normal", [](Bridge bridge) {
  expectLeftover({.strings = 2}); // the bridge does not release their handles
  NSString *string = nil;
  [bridge outStringWithArg:&string error:nullptr];
  EXPECT_TRUE([string isEqual:@"out"]);
  EXPECT_TRUE([[bridge returnStringWithError:nullptr] isEqual:@"out"]);
  script().string = u"";
  EXPECT_EQ(0u, [[bridge returnStringWithError:nullptr] length]);
});

const MemberCell stringArrayIn("string.in.array.normal", [](Bridge bridge) {
  for (NSArray *array : { @[ @"a", @"", @"c" ], @[], static_cast<NSArray *>(nil) })
    [bridge inStringArrayWithArr:array error:nullptr];
  EXPECT_EQ(
      (Crossings{"InStringArray [\"a\", null, \"c\"]", "InStringArray []", "InStringArray []"}),
      takeCrossings());
});

// More than one batch of clean-ups, last registered first, the block after its elements.
const MemberCell stringArrayInCleanups("string.in.array.cleanups", [] {
  Bridge bridge = newBridge([WRTTestInterfaceBridge class]);
  for (NSUInteger count : {0u, 1u, 15u, 16u, 17u, 33u, 1000u}) {
    SCOPED_TRACE(count);
    NSArray *const strings = numbered(count);
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

const MemberCell stringArrayOut("string.out.array.normal", [](Bridge bridge) {
  expectLeftover({.taskBlocks = 4}); // the element blocks are WinRT's and not freed: one a call
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

const MemberCell stringArrayFilled("string.out.array_preallocated.normal", [](Bridge bridge) {
  expectLeftover({.strings = 2}); // the returned form alone leaves its elements' handles
  NSMutableArray *array = [NSMutableArray arrayWithObject:@"before"];
  [bridge outStringArrayPreallocatedWithSize:5 arr:array error:nullptr];
  EXPECT_EQ("0 1 2", joined(array)) << "fewer than asked for";
  [bridge outStringArrayPreallocatedWithSize:0 arr:array error:nullptr];
  EXPECT_EQ(0u, [array count]);
  EXPECT_EQ("0 1", joined([bridge returnStringArrayPreallocatedWithSize:2 error:nullptr]));
});

} // namespace

} // namespace wrt::test
