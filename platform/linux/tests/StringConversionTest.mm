#import <Foundation/Foundation.h>

#include "platform/linux/implement/StringHolder.h"
#include "platform/linux/tests/LedgerTest.h"

#include <WRTBridgeUtil.h>
#include <string>

namespace wrt::test {
namespace {

using implement::StringHolder;

/// What an `NSString` of these units becomes on its way into a handle and back.
std::u16string unitsOf(NSString *string) {
  std::u16string units([string length], u'\0');
  [string getCharacters:reinterpret_cast<unichar *>(units.data())];
  return units;
}

class StringConversion : public LedgerTest {
protected:
  void SetUp() override { pool_ = [[NSAutoreleasePool alloc] init]; }
  void TearDown() override {
    [pool_ release];
    LedgerTest::TearDown();
  }

private:
  NSAutoreleasePool *pool_;
};

TEST_F(StringConversion, KeepsEveryUnitBothWays) {
  const std::u16string cases[] = {
      u"plain",
      u"\u00E9\u00FF latin",
      u"\u0142\u4E2D\uFFFF",
      std::u16string(u"nul\0inside\0", 11),
      std::u16string(u"\0", 1),
      u"\U0001F600\U0001F468\u200D\U0001F469",
      std::u16string{u'a', char16_t{0xD83D}, u'b'},
      std::u16string{char16_t{0xDE00}, char16_t{0xD83D}},
      u"\uFEFFmark",
      u"\uFFFEswapped",
  };
  for (const std::u16string &units : cases) {
    const StringHolder string(units);
    NSString *converted = [WRTHSTRINGToCFString(string.get()) autorelease];
    ASSERT_NE(converted, nil);
    EXPECT_EQ(unitsOf(converted), units);
    const StringHolder back = StringHolder::adopt(WRTHSTRINGFromCFString(converted));
    EXPECT_EQ(back.view(), units);
  }
}

TEST_F(StringConversion, NothingIsTheNullHandleAndTheEmptyString) {
  EXPECT_EQ(WRTHSTRINGFromCFString(nil), nullptr);
  EXPECT_EQ(WRTHSTRINGFromCFString(@""), nullptr);
  NSString *empty = [WRTHSTRINGToCFString(nullptr) autorelease];
  ASSERT_NE(empty, nil);
  EXPECT_EQ([empty length], 0u);
}

TEST_F(StringConversion, LiteralsAndMutableStringsAreCopied) {
  const StringHolder literal =
      StringHolder::adopt(WRTHSTRINGFromCFString(@"gr\u00FC\u00DFe \U0001F600"));
  EXPECT_EQ(literal.view(), u"gr\u00FC\u00DFe \U0001F600");

  NSMutableString *text = [NSMutableString stringWithString:@"before"];
  const StringHolder copy = StringHolder::adopt(WRTHSTRINGFromCFString(text));
  [text setString:@"after!"];
  EXPECT_EQ(copy.view(), u"before");
}

TEST_F(StringConversion, ResultBelongsToTheCallerAndLeavesTheHandleAlone) {
  StringHolder string(u"text of the caller");
  NSString *converted = WRTHSTRINGToCFString(string.get());
  EXPECT_EQ([converted retainCount], 1u);
  EXPECT_EQ(change(), "strings +1, string handles +1");
  string = StringHolder();
  EXPECT_EQ(unitsOf(converted), u"text of the caller");
  [converted release];
}

// Units that are no text make a string of another class, which has to behave like any other.
TEST_F(StringConversion, UnpairedSurrogatesMakeAFullString) {
  const std::u16string units{u'a', char16_t{0xD800}, u'b'};
  NSString *string = [WRTHSTRINGToCFString(StringHolder(units).get()) autorelease];
  NSString *other = [WRTHSTRINGToCFString(StringHolder(units).get()) autorelease];
  EXPECT_TRUE([string isEqual:other]);
  EXPECT_EQ([string hash], [other hash]);
  EXPECT_FALSE([string isEqual:@"ab"]);
  EXPECT_EQ(unitsOf([[string mutableCopy] autorelease]), units);
  EXPECT_EQ(unitsOf([string stringByAppendingString:@"!"]), units + u"!");
  EXPECT_EQ(unitsOf([string substringFromIndex:1]), units.substr(1));
  EXPECT_EQ([[string copy] autorelease], string);
  NSString *raised = nil;
  @try {
    [string characterAtIndex:3];
  } @catch (NSException *exception) {
    raised = [exception name];
  }
  EXPECT_TRUE([raised isEqual:NSRangeException]);
}

// Quadratic conversion of a million units would take minutes.
TEST_F(StringConversion, AMillionUnits) {
  for (const char16_t unit : {u'x', u'\u4E2D', char16_t{0xD800}}) {
    const std::u16string units(1'000'000, unit);
    const StringHolder string(units);
    NSString *converted = WRTHSTRINGToCFString(string.get());
    const StringHolder back = StringHolder::adopt(WRTHSTRINGFromCFString(converted));
    EXPECT_TRUE(back.view() == units);
    [converted release];
  }
}

} // namespace
} // namespace wrt::test
