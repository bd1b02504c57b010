// imagetests IMAGE CATALOGUE: the image tools against an image that is right and against what can
// be wrong with one.
#include "CatalogueComparison.h"
#include "FixupTable.h"
#include "Metadata.h"
#include "ProductRules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <random>
#include <sstream>

namespace wrt::pe {

namespace {

std::filesystem::path imageFile;
std::filesystem::path catalogueFile;

std::vector<std::uint8_t> readImage() {
  std::ifstream stream(imageFile, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

class Inspection : public testing::Test {
protected:
  Inspection() {
    for (const Import &import : image.imports())
      facts.imports.insert(import.library + ' ' + import.name);
  }

  /// What differs after a change of the catalogue, one line each.
  std::string differenceAfter(const std::function<void(std::vector<catalogue::Method> &)> &change) {
    auto changed = listed;
    change(changed);
    const auto differences = compareWithCatalogue(metadata, changed);
    std::string text;
    for (const std::string &difference : differences)
      text += (text.empty() ? "" : "\n") + difference;
    return text;
  }

  const Image image = Image::read(imageFile);
  const Metadata metadata = Metadata::read(image);
  const std::vector<catalogue::Method> listed = catalogue::readMethods(catalogueFile.string());
  ProductFacts facts{{"WRTCreateNSStringFromHSTRING", "WRTCreateHSTRINGFromNSString",
                      "WRTCreateNSErrorFromHRESULT", "WRTCreateNSDataFromIBuffer",
                      "WRTCreateWRTRandomAccessReferenceBridgeFromNSData",
                      "WRTCreateNSDataFromRandomAccessStreamReference"},
                     {}};
  /// Where a method stands in the catalogue.
  std::size_t find(const std::string &className, const std::string &selector) const {
    const auto found = std::ranges::find_if(listed, [&](const catalogue::Method &each) {
      return each.className == className && each.selector == selector;
    });
    return static_cast<std::size_t>(found - listed.begin());
  }
};

TEST_F(Inspection, ReadsWhatTheClassesDeclare) {
  const ObjCClass &root = metadata.classes.at("WRTUnknownBridge");
  EXPECT_EQ(root.superclass, "NSObject");
  EXPECT_EQ(root.protocols, std::vector<std::string>{"WRTIUnknownBridge"});
  ASSERT_EQ(root.variables.size(), 1u);
  EXPECT_EQ(root.variables[0].name, "_inner_obj");
  EXPECT_EQ(root.variables[0].encoding, "^v");
  EXPECT_EQ(root.variables[0].offset, 4u);
  ASSERT_EQ(root.properties.size(), 1u);
  EXPECT_EQ(root.properties[0].attributes, "T^v,R,N,V_inner_obj");
  EXPECT_EQ(metadata.classes.at("WRTTestInterfaceBridge").superclass, "WRTInterfaceProxy");
  EXPECT_EQ(metadata.protocols.at("WRTTestInterfaceBridge").adopted,
            std::vector<std::string>{"WRTIInspectableBridge"});
}

TEST_F(Inspection, FindsEveryKindOfDifference) {
  EXPECT_TRUE(compareWithCatalogue(metadata, listed).empty());
  const std::size_t text = find("WRTTestInterfaceBridge", "returnStringWithError:");
  const std::size_t last = find("WRTTestClassBridge", "testStaticFunctionWithError:");
  const std::size_t made = find("WRTTestClassBridge", "activateInstance");
  ASSERT_LT(std::max({text, last, made}), listed.size());
  EXPECT_EQ(
      differenceAfter([&](auto &entries) { entries[text].encoding = "v8@0:4"; }),
      "-[WRTTestInterfaceBridge returnStringWithError:]: encoding is @12@0:4^@8, should be v8@0:4\n"
      "-[WRTTestInterfaceBridge returnStringWithError:]: the protocol's encoding is @12@0:4^@8, "
      "should "
      "be v8@0:4");
  EXPECT_EQ(differenceAfter([&](auto &entries) { entries[text].extendedEncoding = "?"; }),
            "-[WRTTestInterfaceBridge returnStringWithError:]: extended encoding is "
            "@\"NSString\"12@0:4^@8, "
            "should be ?");
  EXPECT_EQ(differenceAfter(
                [&](auto &entries) { entries.erase(entries.begin() + static_cast<long>(text)); }),
            "-[WRTTestInterfaceBridge returnStringWithError:]: not in the catalogue");
  EXPECT_EQ(differenceAfter([&](auto &entries) {
              entries.push_back({"WRTNowhereBridge", true, "x", "v8@0:4", "", "", 6});
            }),
            "+[WRTNowhereBridge x]: missing");
  EXPECT_EQ(differenceAfter([&](auto &entries) { entries.push_back(entries[last]); }),
            "+[WRTTestClassBridge testStaticFunctionWithError:]: twice in the catalogue");
  EXPECT_EQ(differenceAfter([&](auto &entries) { entries[made].extendedEncoding = "?"; }),
            "+[WRTTestClassBridge activateInstance]: declared by no protocol of the class");
}

TEST_F(Inspection, ChecksTheRulesOfTheProduct) {
  EXPECT_TRUE(checkProduct(image, metadata, facts).empty());
  auto more = facts;
  more.functions.insert("WRTMissing");
  more.imports.insert("zorvex.dll objc_missing");
  EXPECT_EQ(checkProduct(image, metadata, more),
            (std::vector<std::string>{"WRTMissing is not exported",
                                      "zorvex.dll objc_missing is not imported"}));
  auto fewer = facts;
  fewer.functions.erase("WRTCreateNSErrorFromHRESULT");
  fewer.imports.erase("zorvex.dll objc_msgSend");
  const auto problems = checkProduct(image, metadata, fewer);
  for (const char *problem : {"WRTCreateNSErrorFromHRESULT is exported without a reason",
                              "objc_msgSend is imported from zorvex.dll without a reason"})
    EXPECT_EQ(std::ranges::count(problems, problem), 1) << problem;
  Metadata missing = metadata;
  missing.classes.at("WRTTestClassBridge").methods.at(0).implementation ^= 1;
  EXPECT_EQ(checkProduct(image, missing, facts).size(), 1u);
}

TEST_F(Inspection, HeadersThatDisqualifyAnImageAreFound) {
  const auto good = readImage();
  const std::uint32_t nt = good[0x3C] | good[0x3D] << 8;
  const auto problemsWith = [&](std::uint32_t offset, std::uint8_t bits) {
    auto bytes = good;
    bytes[offset] ^= bits;
    const Image changed = Image::parse(bytes);
    return checkProduct(changed, metadata, facts).size();
  };
  EXPECT_EQ(problemsWith(nt + 4, 0x01), 1u);       // machine
  EXPECT_EQ(problemsWith(nt + 23, 0x20), 1u);      // DLL
  EXPECT_EQ(problemsWith(nt + 24 + 70, 0x40), 1u); // dynamic base
  EXPECT_EQ(problemsWith(nt + 24 + 71, 0x01), 1u); // no execute
  EXPECT_EQ(problemsWith(nt + 24 + 71, 0x10), 1u); // app container
}

/// A function without its record, and codes that cannot be read.
TEST_F(Inspection, UnwindRecordsThatAreMissingOrDamagedAreFound) {
  const Section &records = *image.findSection(".pdata");
  auto bytes = readImage();
  const auto place = std::search(bytes.begin(), bytes.end(), image.memory().begin() + records.rva,
                                 image.memory().begin() + records.rva + 64);
  ASSERT_NE(place, bytes.end());
  // The second record's function is the first one's once more.
  std::copy_n(place, 8, place + 8);
  EXPECT_FALSE(checkProduct(Image::parse(bytes), metadata, facts).empty());
  const std::uint32_t outside = image.size();
  std::memcpy(&place[12], &outside, sizeof outside);
  EXPECT_THROW(checkProduct(Image::parse(bytes), metadata, facts), FormatError);
}

/// Files that are no images, or were: refused, never followed out of their bounds.
TEST_F(Inspection, DamagedFilesAreRefused) {
  const auto good = readImage();
  const auto inspect = [](const std::vector<std::uint8_t> &bytes) {
    try {
      const Image damaged = Image::parse(bytes);
      FixupTable::read(damaged);
      const Metadata read = Metadata::read(damaged);
      std::ostringstream text;
      writeText(read, text);
      checkProduct(damaged, read, {});
      return true;
    } catch (const FormatError &) {
      return false;
    }
  };
  EXPECT_TRUE(inspect(good));
  for (std::size_t size = 0; size < 0x600; size += 13)
    EXPECT_FALSE(inspect({good.begin(), good.begin() + static_cast<long>(size)})) << size;
  std::minstd_rand random(7);
  int refused = 0;
  for (int round = 0; round < 40; ++round) {
    auto bytes = good;
    for (int i = 0; i < 8; ++i)
      bytes[random() % bytes.size()] = static_cast<std::uint8_t>(random());
    refused += !inspect(bytes);
  }
  EXPECT_GT(refused, 0);
}

class FixupTableCheck : public testing::Test {
protected:
  const Image image = Image::read(imageFile);
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

int main(int argc, char **argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc != 3) {
    std::cerr << "usage: imagetests IMAGE CATALOGUE\n";
    return 2;
  }
  wrt::pe::imageFile = argv[1];
  wrt::pe::catalogueFile = argv[2];
  return RUN_ALL_TESTS();
}
