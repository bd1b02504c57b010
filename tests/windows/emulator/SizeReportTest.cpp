#include "SizeReport.h"

#include <gtest/gtest.h>

#include <fstream>

namespace wrt::pe::test {
namespace {

std::filesystem::path write(const std::string &text) {
  const auto file = std::filesystem::path(testing::TempDir()) / "SizeReportTest.map";
  std::ofstream(file) << text;
  return file;
}

TEST(LinkMapTest, ReadsChunksAndTheirFirstSymbols) {
  const LinkMap map = LinkMap::read(write(
      "Address  Size     Align Out     In      Symbol\n"
      "00001000 00000020  4096 .text\n"
      "00001000 0000000c     2         /a b/x.dir/./classes/U.mm.o:(.text$\1-[A getB:error:])\n"
      "00001000 00000000     0                 \1-[A getB:error:]\n"
      "0000100c 00000014     2         /y/core.dir/./L.mm.o:(.text$_ZN3wrt4callINS_6StringEJEEE)\n"
      "0000100c 00000000     0                 wrt::call<wrt::String>(id)\n"
      "0000100c 00000000     0                 the same again\n"));
  ASSERT_EQ(map.chunks.size(), 2u);
  EXPECT_EQ(map.chunks[0].file, "/a b/x.dir/./classes/U.mm.o");
  EXPECT_EQ(map.chunks[0].symbol, "-[A getB:error:]");
  EXPECT_EQ(map.chunks[0].size, 12u);
  EXPECT_TRUE(isMethod(map.chunks[0]) && !isShape(map.chunks[0]));
  EXPECT_TRUE(isShape(map.chunks[1]) && !isMethod(map.chunks[1]));
  EXPECT_EQ(map.find("wrt::call<wrt::String>(id)"), &map.chunks[1]);
  EXPECT_EQ(map.find("another"), nullptr);
  EXPECT_THROW(LinkMap::read(write("Address  Size\n")), FormatError);
  EXPECT_THROW(LinkMap::read(write("Address\n00001x00 0000000c     2         /a.o:(.text)\n")),
               FormatError);
  EXPECT_THROW(LinkMap::read("nowhere.map"), FormatError);
  EXPECT_THROW(Image::read(testing::TempDir()), FormatError);
}

TEST(SizeReportTest, NamesWhatMissesItsGoal) {
  SizeReport report;
  report.file = 100;
  report.sections = {{".text", 0x1000, 50, 50, 0}};
  report.methods = {{"-[A getNumberWithError:]", 25},
                    {"-[A setNameWithValue:error:]", 25},
                    {"-[A setNumberWithValue:error:]", 25},
                    {"+[A doWithError:]", 49},
                    {"-[A getNameWithError:]", 48}};
  const std::vector<CatalogueEntry> catalogue = {
      {"A", false, "getNumberWithError:", "i12@0:4^@8", "", "IA", "6"},
      {"A", false, "setNumberWithValue:error:", "v16@0:4i8^@12", "", "IA", "7"},
      {"A", false, "getNameWithError:", "@12@0:4^@8", "", "IA", "8"},
      {"A", false, "setNameWithValue:error:", "v16@0:4@8^@12", "", "IA", "9"},
      {"A", true, "doWithError:", "v12@0:4^@8", "", "IA", "10"}};
  const SizeCheck none = checkSizes(report, catalogue, {});
  EXPECT_EQ(none.methods, 5u);
  EXPECT_EQ(none.valueAccessors, 2u);
  EXPECT_EQ(none.problems, (std::vector<std::string>{
                               "-[A getNumberWithError:] has 25 bytes, the goal is 24",
                               "-[A setNumberWithValue:error:] has 25 bytes, the goal is 24",
                               "+[A doWithError:] has 49 bytes, the goal is 48",
                           }));
  // Lists have no more than what misses a goal.
  EXPECT_EQ(checkSizes(report, catalogue,
                       {"-[A getNumberWithError:]", "-[A setNumberWithValue:error:]",
                        "+[A doWithError:]", "-[A getNameWithError:]"})
                .problems,
            std::vector<std::string>{"-[A getNameWithError:] is listed as large and is not"});
  EXPECT_EQ(checkSizes(report, {}, {}, {.file = 99, .text = 49}).problems.size(), 2u);
  EXPECT_EQ(checkSizes(report, {{"B", false, "x", "v", "", "IB", "6"}}, {}).problems,
            std::vector<std::string>{"the map has no -[B x]"});
}

} // namespace
} // namespace wrt::pe::test
