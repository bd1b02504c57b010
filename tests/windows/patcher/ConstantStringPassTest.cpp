#include "ConstantStringPass.h"
#include "TestProcess.h"

#include <gtest/gtest.h>

namespace wrt::startup::test {
namespace {

constexpr Address kBase = TestProcess::kBase;
constexpr std::uint32_t kPage = TestProcess::kPageSize;

/// An image with headers on its first page; sections are added by name, one page each.
class ConstantStrings : public testing::Test {
protected:
  static constexpr Address kNt = kBase + 0x80;
  static constexpr std::uint32_t kOptionalSize = 0xE0;

  ConstantStrings() {
    process.poke(kBase, {'M', 'Z'});
    process.poke32(kBase + 0x3C, kNt - kBase);
    process.poke(kNt, {'P', 'E', 0, 0});
    process.poke32(kNt + 20, kOptionalSize);
  }

  /// Adds the header of a section at the image's page `page`.
  void addSection(const std::string &name, std::uint32_t page, std::uint32_t size) {
    const Address header = kNt + 24 + kOptionalSize + 40 * count_;
    std::vector<std::uint8_t> bytes(name.begin(), name.end());
    bytes.resize(8);
    process.poke(header, bytes);
    process.poke32(header + 8, size);
    process.poke32(header + 12, page * kPage);
    process.poke32(kNt + 6, ++count_);
  }

  static Address pageAt(std::uint32_t page) { return kBase + page * kPage; }

  TestProcess process{{kPageReadWrite, kPageReadOnly, kPageReadWrite, kPageReadWrite}};

private:
  std::uint32_t count_ = 0;
};

TEST_F(ConstantStrings, ClassWordsInTheImportSectionAreReplaced) {
  addSection(".text", 0, 16);
  addSection(".idata", 1, 0x40);
  addSection("cfstring", 2, 5 * 16);
  process.poke32(pageAt(1), 0xCAFE0001);
  process.poke32(pageAt(1) + 0x3C, 0xCAFE0002);
  const std::uint32_t words[] = {pageAt(1), pageAt(1) + 0x3C, pageAt(1) + 0x40, pageAt(1) - 4, 0};
  for (std::uint32_t i = 0; i < 5; ++i) {
    for (std::uint32_t field = 0; field < 4; ++field)
      process.poke32(pageAt(2) + 16 * i + 4 * field, field == 0 ? words[i] : pageAt(1));
  }
  // A word behind the section, which looks like a string's.
  process.poke32(pageAt(2) + 5 * 16, pageAt(1));

  constantStringPass(kBase, process);
  const std::uint32_t expected[] = {0xCAFE0001, 0xCAFE0002, words[2], words[3], words[4]};
  for (std::uint32_t i = 0; i < 5; ++i) {
    EXPECT_EQ(process.peek32(pageAt(2) + 16 * i), expected[i]) << i;
    for (std::uint32_t field = 1; field < 4; ++field)
      EXPECT_EQ(process.peek32(pageAt(2) + 16 * i + 4 * field), pageAt(1));
  }
  EXPECT_EQ(process.peek32(pageAt(2) + 5 * 16), pageAt(1));
}

TEST_F(ConstantStrings, TheLastSectionOfANameIsTaken) {
  addSection("cfstring", 2, 16);
  addSection(".idata", 1, 0x40);
  addSection("cfstring", 3, 16);
  addSection(".idata2", 0, 16);
  process.poke32(pageAt(1) + 4, 0xCAFE0003);
  process.poke32(pageAt(2), pageAt(1) + 4);
  process.poke32(pageAt(3), pageAt(1) + 4);
  constantStringPass(kBase, process);
  EXPECT_EQ(process.peek32(pageAt(2)), pageAt(1) + 4);
  EXPECT_EQ(process.peek32(pageAt(3)), 0xCAFE0003);
}

TEST_F(ConstantStrings, ImagesWithoutTheSectionsStay) {
  addSection(".idata", 1, 0x40);
  process.poke32(pageAt(2), pageAt(1));
  const auto before = process.image();
  constantStringPass(kBase, process);
  EXPECT_EQ(process.image(), before);
}

TEST_F(ConstantStrings, SignaturesAreAsserted) {
  const auto failure = [&]() -> std::u16string {
    try {
      constantStringPass(kBase, process);
      return u"";
    } catch (const AssertionFailed &assertion) {
      return assertion.condition;
    }
  };
  EXPECT_EQ(failure(), u"");
  for (const Address byte : {kNt, kNt + 1, kNt + 2, kNt + 3}) {
    process.poke(kNt, {'P', 'E', 0, 0});
    process.poke(byte, {0x7F});
    EXPECT_EQ(failure(),
              u"pNTHeaders->Signature == IMAGE_NT_SIGNATURE && \"expected a NT signature\"");
  }
  for (const Address byte : {kBase, kBase + 1}) {
    process.poke(kBase, {'M', 'Z'});
    process.poke(byte, {0x7F});
    EXPECT_EQ(failure(),
              u"pDOSHeader->e_magic == IMAGE_DOS_SIGNATURE && \"expected a DOS signature\"");
  }
}

} // namespace
} // namespace wrt::startup::test
