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

} // namespace
} // namespace wrt::test
