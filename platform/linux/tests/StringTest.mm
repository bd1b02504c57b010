#import <Foundation/Foundation.h>

#include "platform/linux/implement/StringHolder.h"
#include "platform/linux/tests/LedgerTest.h"

#include <WRTBridgeUtil.h>

namespace wrt::test {
namespace {

using implement::StringHolder;

class Strings : public LedgerTest {
protected:
  WRTHSTRINGHeader header_;
  HSTRING string_ = reinterpret_cast<HSTRING>(&header_);
};

TEST_F(Strings, EmptyTextIsTheNullHandle) {
  EXPECT_EQ(makeString(u"", &string_), status::kOk);
  EXPECT_EQ(string_, nullptr);
  EXPECT_EQ(WRTHSTRINGDuplicate(nullptr, &string_), status::kOk);
  EXPECT_EQ(string_, nullptr);
  EXPECT_EQ(WRTHSTRINGRelease(nullptr), status::kOk);
  EXPECT_EQ(viewOf(nullptr), u"");
  EXPECT_EQ(viewOf(nullptr).data()[0], u'\0');
  EXPECT_EQ(WRTHSTRINGLength(nullptr), 0u);
  for (const char16_t *text : {static_cast<const char16_t *>(nullptr), u""}) {
    string_ = reinterpret_cast<HSTRING>(&header_);
    EXPECT_EQ(WRTHSTRINGCreateReference(text, 0, &header_, &string_), status::kOk);
    EXPECT_EQ(string_, nullptr);
  }
}

TEST_F(Strings, ReferenceBorrowsItsTextAndADuplicateOutlivesIt) {
  StringHolder copy;
  char16_t text[] = u"zo\xD800rvex";
  ASSERT_EQ(WRTHSTRINGCreateReference(text, WRTHSTRINGLength(text), &header_, &string_),
            status::kOk);
  EXPECT_EQ(viewOf(string_).data(), text);
  EXPECT_EQ(viewOf(string_).size(), 7u);
  EXPECT_EQ(reinterpret_cast<void *>(string_), &header_);
  EXPECT_EQ(change(), "nothing");
  ASSERT_EQ(WRTHSTRINGDuplicate(string_, copy.put()), status::kOk);
  EXPECT_EQ(WRTHSTRINGRelease(string_), status::kOk);
  text[0] = u'X';
  header_.reserved.reserved1 = nullptr;
  EXPECT_EQ(copy.view(), u"zo\xD800rvex");
  EXPECT_EQ(change(), "strings +1, string handles +1");
}

TEST_F(Strings, ReferenceRefusesWhatIsNoString) {
  EXPECT_EQ(WRTHSTRINGCreateReference(u"abc", 2, &header_, &string_), status::kInvalidArgument);
  EXPECT_EQ(string_, nullptr);
  EXPECT_EQ(WRTHSTRINGCreateReference(nullptr, 1, &header_, &string_), status::kPointer);
  EXPECT_EQ(WRTHSTRINGCreateReference(u"abc", 3, nullptr, &string_), status::kInvalidArgument);
  EXPECT_EQ(WRTHSTRINGCreateReference(u"abc", 3, &header_, nullptr), status::kInvalidArgument);
}

std::u16string unitsOf(NSString *string) {
  std::u16string units([string length], u'\0');
  [string getCharacters:reinterpret_cast<unichar *>(units.data())];
  return units;
}

// Units that are no text make a string of another class, which has to behave like any other.
TEST_F(Strings, UnpairedSurrogatesMakeAFullString) {
  @autoreleasepool {
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
}

} // namespace
} // namespace wrt::test
