#include "platform/linux/implement/StringHolder.h"
#include "platform/linux/tests/LedgerTest.h"

#include <string>

namespace wrt::test {
namespace {

using implement::StringHolder;

class HString : public LedgerTest {};

TEST_F(HString, EmptyTextIsTheNullHandle) {
  HSTRING string;
  EXPECT_EQ(makeString(u"", &string), status::kOk);
  EXPECT_EQ(string, nullptr);
  EXPECT_EQ(WRTHSTRINGDuplicate(nullptr, &string), status::kOk);
  EXPECT_EQ(string, nullptr);
  EXPECT_EQ(WRTHSTRINGRelease(nullptr), status::kOk);
  EXPECT_EQ(viewOf(nullptr), u"");
  EXPECT_EQ(viewOf(nullptr).data()[0], u'\0');
  EXPECT_EQ(WRTHSTRINGLength(nullptr), 0u);
  WRTHSTRINGHeader header;
  for (const char16_t *text : {static_cast<const char16_t *>(nullptr), u""}) {
    string = reinterpret_cast<HSTRING>(&header);
    EXPECT_EQ(WRTHSTRINGCreateReference(text, 0, &header, &string), status::kOk);
    EXPECT_EQ(string, nullptr);
  }
}

TEST_F(HString, ReferenceBorrowsItsText) {
  const char16_t text[] = u"zo\xD800rvex";
  WRTHSTRINGHeader header;
  HSTRING reference;
  ASSERT_EQ(WRTHSTRINGCreateReference(text, WRTHSTRINGLength(text), &header, &reference),
            status::kOk);
  EXPECT_EQ(viewOf(reference).data(), text);
  EXPECT_EQ(viewOf(reference).size(), 7u);
  EXPECT_EQ(reinterpret_cast<void *>(reference), &header);
  EXPECT_EQ(WRTHSTRINGRelease(reference), status::kOk);
  EXPECT_EQ(change(), "nothing");
}

TEST_F(HString, DuplicateOfAReferenceOutlivesIt) {
  StringHolder copy;
  {
    char16_t text[] = u"short-lived";
    WRTHSTRINGHeader header;
    HSTRING reference;
    ASSERT_EQ(WRTHSTRINGCreateReference(text, 11, &header, &reference), status::kOk);
    ASSERT_EQ(WRTHSTRINGDuplicate(reference, copy.put()), status::kOk);
    text[0] = u'X';
    header.reserved.reserved1 = nullptr;
  }
  EXPECT_EQ(copy.view(), u"short-lived");
  EXPECT_EQ(change(), "strings +1, string handles +1");
}

TEST_F(HString, ReferenceRefusesWhatIsNoString) {
  WRTHSTRINGHeader header;
  HSTRING string = reinterpret_cast<HSTRING>(&header);
  EXPECT_EQ(WRTHSTRINGCreateReference(u"abc", 2, &header, &string), status::kInvalidArgument);
  EXPECT_EQ(string, nullptr);
  EXPECT_EQ(WRTHSTRINGCreateReference(nullptr, 1, &header, &string), status::kPointer);
  EXPECT_EQ(WRTHSTRINGCreateReference(u"abc", 3, nullptr, &string), status::kInvalidArgument);
  EXPECT_EQ(WRTHSTRINGCreateReference(u"abc", 3, &header, nullptr), status::kInvalidArgument);
}

} // namespace
} // namespace wrt::test
