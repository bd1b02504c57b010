#include "TestTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>

namespace wrt::startup::test {
namespace {

constexpr Address kBase = TestProcess::kBase;
constexpr std::uint32_t kPage = TestProcess::kPageSize;
constexpr std::uint32_t kWord = 0x010;
constexpr std::uint32_t kPair = 0x110;

/// The image of most cases: slots, then a page of each kind that needs opening, then a writable
/// one.
class FixupPass : public testing::Test {
protected:
  FixupPass() {
    process.poke32(kSlot, 0x11223344);
    process.poke32(kOtherSlot, 0xF0000000);
  }

  /// MOVW r3, #0 and MOVT r3, #0.
  void pokePair(Address address) {
    process.poke(address, {0x40, 0xF2, 0x00, 0x03, 0xC0, 0xF2, 0x00, 0x03});
  }

  static constexpr Address kSlot = kBase + 0x10;
  static constexpr Address kOtherSlot = kBase + 0x14;
  static constexpr Address kReadOnly = kBase + 1 * kPage;
  static constexpr Address kExecutable = kBase + 2 * kPage;
  static constexpr Address kWritable = kBase + 4 * kPage;

  const std::vector<std::uint32_t> layout{kPageReadOnly,    kPageReadOnly,  kPageExecuteRead,
                                          kPageExecuteRead, kPageReadWrite, kPageWriteCopy};
  TestProcess process{layout};
};

TEST_F(FixupPass, KindIsBits4To11OfItsWord) {
  pokePair(kWritable + 8);
  TestTable()
      .add(kWritable, 0, kSlot, 0xFFFFF01F)
      .add(kWritable + 8, 0, kSlot, 0xABCDE115)
      .add(kWritable + 0x20, 0, kSlot, 0xFFFFF00F)
      .apply(process);
  EXPECT_EQ(process.peek32(kWritable), 0x11223344u);
  // MOVW r3, #0x3344 and MOVT r3, #0x1122 as llvm-mc writes them.
  EXPECT_EQ(process.peek32(kWritable + 8), 0x3344F243u);
  EXPECT_EQ(process.peek32(kWritable + 12), 0x1322F2C1u);
  EXPECT_EQ(process.peek32(kWritable + 0x20), 0u);
}

TEST_F(FixupPass, EveryOtherKindAborts) {
  for (std::uint32_t kind = 0; kind <= 0xFF; ++kind) {
    TestTable table;
    table.add(kWritable, 0, kSlot, kind << 4);
    if (kind == 0 || kind == 1 || kind == 0x11) {
      EXPECT_NO_THROW(table.apply(process)) << kind;
    } else {
      EXPECT_THROW(table.apply(process), Aborted) << kind;
    }
  }
  // A record outside the image is skipped whatever its kind.
  EXPECT_NO_THROW(TestTable().add(process.imageEnd(), 0, kSlot, 0x20).apply(process));
}

TEST_F(FixupPass, TargetsOutsideTheImageAreSkipped) {
  const auto before = process.image();
  TestTable table;
  for (const Address target : {0u, 4u, kBase - 4, kBase - 1, process.imageEnd(),
                               process.imageEnd() + 1, 0xFFFFFFFCu, 0xFFFFFFFFu}) {
    for (const std::uint32_t kind : {kWord, kPair})
      table.add(target, 0, kSlot, kind);
  }
  // These begin inside and would end outside.
  table.add(process.imageEnd() - 2, 0, kSlot, kWord).add(process.imageEnd() - 6, 0, kSlot, kPair);
  table.apply(process);
  EXPECT_EQ(process.image(), before);
  EXPECT_TRUE(process.surroundingsAreIntact());
  EXPECT_EQ(process.protections(), layout);
  // The first and the last word belong to it.
  TestTable()
      .add(kBase, 0, kSlot, kWord)
      .add(process.imageEnd() - 4, 0, kSlot, kWord)
      .apply(process);
  EXPECT_EQ(process.peek32(kBase), 0x11223344u);
  EXPECT_EQ(process.peek32(process.imageEnd() - 4), 0x11223344u);
  EXPECT_EQ(process.protections(), layout);
}

TEST_F(FixupPass, NothingHappensWithoutTheHeader) {
  const auto before = process.image();
  TestTable good;
  good.add(kWritable, 1, kSlot, kWord);
  for (int byte = 0; byte < 16; ++byte) {
    TestTable table = good;
    table.bytes()[byte] ^= 0x80;
    table.apply(process);
    EXPECT_EQ(process.image(), before) << byte;
  }
  for (std::size_t size = 0; size < 32; ++size) {
    TestTable table = good;
    table.bytes().resize(size);
    // A copy of exactly that size, so that a sanitizer sees a read behind its end.
    std::vector<std::uint8_t> exact(table.bytes());
    fixupPass(exact.data(), static_cast<std::uint32_t>(exact.size()), TestTable().bytes().data(),
              process);
    EXPECT_EQ(process.image(), before) << size;
  }
}

TEST_F(FixupPass, NothingHappensWhenAServiceFails) {
  const auto before = process.image();
  for (bool TestProcess::*service :
       {&TestProcess::hasSelf, &TestProcess::hasKernel, &TestProcess::hasGetModuleInformation,
        &TestProcess::getModuleInformationSucceeds, &TestProcess::allowsProtect}) {
    process.*service = false;
    TestTable().add(kReadOnly, 1, kSlot, kWord).add(kExecutable, 0, kSlot, kWord).apply(process);
    EXPECT_EQ(process.image(), before);
    process.*service = true;
  }
  TestTable().add(kWritable, 1, kSlot, kWord).apply(process);
  EXPECT_EQ(process.peek32(kWritable), 0x11223345u);
}

TEST_F(FixupPass, WithoutMemoryTheTableIsWalkedAsItStands) {
  process.hasMemory = false;
  TestTable table;
  table.add(kExecutable + 8, 1, kSlot, kWord)
      .add(kReadOnly, 2, kSlot, kWord)
      .add(kExecutable, 3, kSlot, kWord)
      .add(kWritable, 4, kSlot, kWord);
  const auto stored = table.bytes();
  table.apply(process);
  EXPECT_EQ(process.peek32(kExecutable + 8), 0x11223345u);
  EXPECT_EQ(process.peek32(kReadOnly), 0x11223346u);
  EXPECT_EQ(process.peek32(kExecutable), 0x11223347u);
  EXPECT_EQ(process.peek32(kWritable), 0x11223348u);
  EXPECT_EQ(process.protections(), layout);
  EXPECT_EQ(table.bytes(), stored);
}

TEST_F(FixupPass, NeighbouringPagesAreOpenedTogether) {
  TestTable()
      .add(kExecutable + kPage + 8, 1, kSlot, kWord)
      .add(kExecutable, 2, kSlot, kWord)
      .add(kExecutable + 0x100, 3, kSlot, kWord)
      .apply(process);
  EXPECT_EQ(process.peek32(kExecutable), 0x11223346u);
  EXPECT_EQ(process.peek32(kExecutable + 0x100), 0x11223347u);
  EXPECT_EQ(process.peek32(kExecutable + kPage + 8), 0x11223345u);
  EXPECT_EQ(process.protectCalls, 2) << "opened once and closed once";
  EXPECT_EQ(process.protections(), layout);
}

/// Many unsorted, overlapping and repeated records, some over the ends of pages of all kinds,
/// against the plain rule: in order of targets, each one writes its bytes.
TEST(FixupPassModel, RandomTablesGiveWhatThePlainRuleGives) {
  const std::uint32_t choices[] = {kPageReadOnly, kPageExecuteRead, kPageReadWrite, kPageWriteCopy};
  std::minstd_rand generator(20160802);
  const auto random = [&] { return static_cast<std::uint32_t>(generator()) << 1; };
  for (int round = 0; round < 200; ++round) {
    std::vector<std::uint32_t> layout{kPageReadOnly};
    for (int i = 0; i < 7; ++i)
      layout.push_back(choices[(random() >> 8) % 4]);
    TestProcess process(layout);
    for (Address slot = kBase; slot < kBase + 64; slot += 4)
      process.poke32(slot, random());

    struct Entry {
      Address target;
      std::uint32_t addend;
      Address slot;
    };
    std::vector<Entry> entries;
    entries.reserve(90);
    for (int i = 0; i < 60; ++i) {
      entries.push_back({kBase + kPage + random() % (7 * kPage - 4) / 2 * 2, random(),
                         kBase + (random() >> 8) % 16 * 4});
    }
    // Over every page's end, and overlaps.
    for (Address page = kBase + 2 * kPage; page < process.imageEnd(); page += kPage)
      entries.push_back({page - 2, random(), kBase});
    for (int i = 0; i < 10; ++i) {
      entries.push_back({entries[i].target + 2 > process.imageEnd() - 4 ? entries[i].target
                                                                        : entries[i].target + 2,
                         random(), kBase});
    }
    std::ranges::sort(entries, {}, &Entry::target);
    const auto twice = std::ranges::unique(entries, {}, &Entry::target);
    entries.erase(twice.begin(), twice.end());
    auto expected = process.image();
    for (const Entry &entry : entries) {
      const std::uint32_t value = entry.addend + process.peek32(entry.slot);
      std::memcpy(&expected[entry.target - kBase], &value, 4);
    }

    entries.insert(entries.end(), entries.begin(), entries.begin() + 5);
    std::ranges::shuffle(entries, generator);
    TestTable table;
    for (const Entry &entry : entries)
      table.add(entry.target | (random() >> 8 & 1), entry.addend, entry.slot, kWord);
    table.apply(process);
    ASSERT_EQ(process.image(), expected) << "round " << round;
    ASSERT_EQ(process.protections(), layout) << "round " << round;
  }
}

/// The same process with pointers of 64 bits.
struct WideProcess : TestProcess {
  using TestProcess::TestProcess;
  using Architecture = Arm64;

  bool virtualQuery(Arm64::Address address, MemoryRegion<Arm64::Address> &region) {
    MemoryRegion<Address> narrow{};
    const bool known = TestProcess::virtualQuery(static_cast<Address>(address), narrow);
    region = {narrow.begin, narrow.size, narrow.protection};
    return known;
  }
};

TEST(WideFixupPass, StoresWordsOfAPointersWidthAndNoInstructions) {
  const std::vector<std::uint32_t> layout{kPageReadOnly, kPageReadOnly};
  WideProcess process(layout);
  process.poke(kBase + 8, {1, 2, 3, 4, 5, 6, 7, 8});
  // Of odd addresses: there is no Thumb code. The second one ends behind the image.
  TableOf<Arm64::Address>()
      .add(kBase + kPage + 1, 1ull << 56, kBase + 8, kWord)
      .add(process.imageEnd() - 7, 0, kBase + 8, kWord)
      .apply(process);
  EXPECT_EQ(process.peek32(kBase + kPage + 1), 0x04030201u);
  EXPECT_EQ(process.peek32(kBase + kPage + 5), 0x09070605u);
  EXPECT_EQ(process.peek32(process.imageEnd() - 7), 0u);
  EXPECT_EQ(process.protections(), layout);
  EXPECT_THROW(TableOf<Arm64::Address>().add(kBase, 0, kBase, kPair).apply(process), Aborted);
}

} // namespace
} // namespace wrt::startup::test
