// Exceptions of the application: what passes through a member leaves nothing behind, which the
// ledger shows, and tells nothing; what a delegate raises does not reach the component.

#include "tests/matrix/Fixture.h"

namespace wrt::test {

namespace {

/// The name of the exception that `body` raises.
template <class Body>
std::string raised(Body body) {
  @try {
    body();
  } @catch (NSException *exception) {
    return [[exception name] UTF8String];
  }
  return "nothing";
}

const MemberCell throughMember("frame.all.arguments.raising", [](Bridge bridge) {
  expectLeftover({.taskBlocks = 2}); // element blocks are not freed
  NSError *const before = staleError();
  NSError *error = before;
  NSError **const place = &error;
  id strange = [[[NSObject alloc] init] autorelease];
  NSArray *const strangers = @[ static_cast<id>(bridge), strange ];
  NSArray *odd = [OddArray arrayWithCount:2];
  FullArray *full = [[[FullArray alloc] init] autorelease];
  PlatformTrace trace;
  EXPECT_EQ("NSInvalidArgumentException",
            raised([&] { [bridge inInterfaceWithArg:strange error:place]; }));
  EXPECT_EQ("WRTIUnknownRelease", trace.names()) << "the interface";
  EXPECT_EQ("NSInvalidArgumentException",
            raised([&] { [bridge inRtcArrayWithArr:strangers error:place]; }));
  EXPECT_EQ("NSRangeException", raised([&] { [bridge inStringArrayWithArr:odd error:place]; }));
  EXPECT_EQ(Crossings{}, takeCrossings()) << "no call is made";
  EXPECT_EQ("NSRangeException",
            raised([&] { [bridge outInterfaceArrayWithArr:full error:place]; }));
  EXPECT_EQ("NSRangeException", raised([&] { [bridge outStringArrayWithArr:full error:place]; }));
  EXPECT_EQ(before, error);
});

const MemberCell throughDelegate("delegate.in.block.raising", [](Bridge bridge) {
  expectLeftover({}); // Foundation keeps what it forwards with when that raises
  handIn(bridge, ^HRESULT(int, NSString *, id, WRTTestClassBridge *) {
    [NSException raise:@"Own" format:@"reason"];
    return 0;
  });
  handIn(bridge, ^HRESULT(NSString **result) {
    *result = @"ignored";
    @throw @"thing";
  });
  handIn(bridge, ^HRESULT(Bridge *result) {
    *result = static_cast<id>([[[NSObject alloc] init] autorelease]); // has no accessor
    return 0;
  });
  EXPECT_EQ((Crossings{"InDelegate", "Invoke 80004005", "InDelegateReturnString 80004005 untouched",
                       "InDelegateReturnInterface 80004005 untouched"}),
            takeCrossings());
  const std::string type = [NSStringFromClass([static_cast<id>(bridge) class]) UTF8String];
  std::string functions;
  for (const LogRecord &record : logRecords()) {
    EXPECT_EQ(3, record.level);
    EXPECT_EQ(0u, record.text.find("A block raised "));
    functions += record.function + "\n";
  }
  EXPECT_EQ("WRTTestDelegateFromBlock_block_invoke\n"
            "WRTTestDelegateWithReturnStringFromBlock_block_invoke\n"
            "-[" +
                type + " inDelegateReturnInterfaceWithArg:error:]_block_invoke\n",
            functions);
});

} // namespace

} // namespace wrt::test
