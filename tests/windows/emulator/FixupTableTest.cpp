// imagetests IMAGE CATALOGUE: the image tools against an image that is right and against
// what can be wrong with one.
#include "FixupTable.h"

#include "ImageTest.h"

#include <gtest/gtest.h>

#include <functional>

namespace wrt::pe {
namespace {

class FixupTableCheck : public testing::Test {
protected:
  const Image image = Image::read(test::imageFile);
  const FixupTable good = FixupTable::read(image);
};

TEST_F(FixupTableCheck, AcceptsTheLinkedImage) {
  EXPECT_GT(good.present.size(), 2u);
  EXPECT_GT(good.constantStrings, 0u);
  EXPECT_TRUE(checkTable(image, good).empty());
}

TEST_F(FixupTableCheck, NamesTheRecordThatIsWrong) {
  const std::pair<const char *, std::function<void(FixupRecord &)>> faults[] = {
      {"target", [](FixupRecord &record) { record.target += 4; }},
      {"addend", [](FixupRecord &record) { record.addend += 8; }},
      {"slot", [](FixupRecord &record) { record.slot -= 4; }},
      {"kind word", [](FixupRecord &record) { record.kindWord = 0x110; }}};
  for (const auto &[field, fault] : faults) {
    FixupTable table = good;
    fault(table.present[2]);
    const auto problems = checkTable(image, table);
    ASSERT_EQ(problems.size(), 1u) << field;
    EXPECT_NE(problems[0].find("record 2 ("), std::string::npos) << problems[0];
    EXPECT_NE(problems[0].find(std::string(": ") + field + " is 0x"), std::string::npos)
        << problems[0];
    EXPECT_NE(problems[0].find(image.importAt(good.needed[2].slot)->name), std::string::npos);
  }
}

TEST_F(FixupTableCheck, NamesRecordsThatAreMissingOrTooMany) {
  FixupTable table = good;
  table.present.pop_back();
  auto problems = checkTable(image, table);
  ASSERT_EQ(problems.size(), 1u);
  EXPECT_NE(problems[0].find(": missing"), std::string::npos) << problems[0];
  table = good;
  table.needed.pop_back();
  problems = checkTable(image, table);
  ASSERT_EQ(problems.size(), 1u);
  EXPECT_NE(problems[0].find(": not needed"), std::string::npos) << problems[0];
}

} // namespace
} // namespace wrt::pe
