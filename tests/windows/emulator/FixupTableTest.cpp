// imagetests IMAGE CATALOGUE FIXUPTABLE: the image tools against an image that is right and against
// what can be wrong with one.
#include "FixupTable.h"

#include "ImageTest.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <fstream>
#include <functional>
#include <sys/wait.h>

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

/// As the build meets it: the tool refuses an image whose table is stale.
TEST_F(FixupTableCheck, TheToolFailsForAStaleTable) {
  auto bytes = test::readFile(test::imageFile);
  const FixupRecord &record = good.present[1];
  const auto base = static_cast<Rva>(image.preferredBase());
  const std::uint32_t words[] = {base + record.target, 0, base + record.slot, kWordFixup};
  std::vector<std::uint8_t> pattern(sizeof words);
  std::memcpy(pattern.data(), words, sizeof words);
  const auto found = std::search(bytes.begin(), bytes.end(), pattern.begin(), pattern.end());
  ASSERT_NE(found, bytes.end());
  found[0] ^= 4; // the target's lowest byte
  const std::string file = testing::TempDir() + "stale.dll";
  std::ofstream(file, std::ios::binary)
      .write(reinterpret_cast<const char *>(bytes.data()), static_cast<long>(bytes.size()));

  FILE *pipe = popen((test::fixupTool.string() + " check " + file + " 2>&1").c_str(), "r");
  ASSERT_TRUE(pipe);
  std::string output;
  for (int c = fgetc(pipe); c != EOF; c = fgetc(pipe))
    output.push_back(static_cast<char>(c));
  const int status = pclose(pipe);
  std::remove(file.c_str());
  EXPECT_EQ(WEXITSTATUS(status), 1);
  EXPECT_NE(output.find("record 1 ("), std::string::npos) << output;
}

} // namespace
} // namespace wrt::pe
