#include "FixupTable.h"

#include <fmt/core.h>

#include <algorithm>
#include <ostream>

namespace wrt::pe {

namespace {

constexpr std::string_view kSectionName = "wrtfixup";
/// The words of a record and of the table's header, each as wide as a pointer. One more stands
/// behind the table.
constexpr std::uint32_t kWords = 4;
constexpr std::string_view kImports = ".idata";

std::string nameRecord(const Image &image, std::size_t index, const FixupRecord &record) {
  const Import *import = image.importAt(record.slot);
  return fmt::format("record {} ({} -> {})", index, image.describe(record.target),
                     import ? import->name : "no import slot");
}

} // namespace

FixupTable FixupTable::read(const Image &image) {
  const Section *section = image.findSection(kSectionName);
  if (!section)
    throw FormatError("the image has no section wrtfixup: the patcher is not linked into it");
  const std::uint32_t wordSize = image.pointerSize();
  const std::uint32_t recordSize = kWords * wordSize;
  if (section->virtualSize < recordSize + wordSize)
    throw FormatError("the section wrtfixup is too small for a fixup table");
  const Rva table = section->rva;
  const Rva tableEnd = table + section->virtualSize - wordSize;
  for (std::uint32_t i = 0; i < kWords; ++i) {
    if (image.word(table + i * wordSize) != (i == kWords - 1 ? 1 : 0))
      throw FormatError("the fixup table has no header");
  }
  if ((tableEnd - table) % recordSize != 0)
    throw FormatError("the fixup table ends within a record");

  FixupTable result;
  for (Rva record = table + recordSize; record < tableEnd; record += recordSize) {
    result.present.push_back({image.pointer(record), image.word(record + wordSize),
                              image.pointer(record + 2 * wordSize),
                              image.word(record + 3 * wordSize)});
  }

  const Section *imports = image.findSection(kImports);
  for (const BaseRelocation &relocation : image.baseRelocations()) {
    const Section *at = image.sectionAt(relocation.rva);
    if (relocation.kind == RelocationKind::kThumbMove || !at || at == section)
      continue;
    const Rva slot = image.pointer(relocation.rva);
    if (!imports || !imports->contains(slot))
      continue;
    const std::string where = image.describe(relocation.rva);
    if (!image.importAt(slot) || at->isExecutable())
      throw FormatError(
          fmt::format("{} refers to {}, which no record can", where, image.describe(slot)));
    if (at->name != "cfstring")
      result.needed.push_back({relocation.rva, 0, slot, kWordFixup});
    else if ((relocation.rva - at->rva) % recordSize != 0)
      throw FormatError(where + " is not the class word of a constant string");
    else
      ++result.constantStrings;
  }
  for (std::size_t i = 1; i < result.needed.size(); ++i) {
    if (result.needed[i].target - result.needed[i - 1].target < wordSize)
      throw FormatError("two fixups overlap at " + image.describe(result.needed[i].target));
  }
  return result;
}

void writeAssembly(const Image &image, const FixupTable &table, std::ostream &out) {
  const std::string_view word = image.pointerSize() == 4 ? "\t.long\t" : "\t.quad\t";
  out << "\t.section\twrtfixup$m,\"dw\"\n\t.p2align\t2\n";
  for (const FixupRecord &record : table.needed) {
    out << fmt::format("{}__ImageBase+{:#x}, {:#x}, __ImageBase+{:#x}, {:#x}\n", word,
                       record.target, record.addend, record.slot, record.kindWord);
  }
}

std::vector<std::string> checkTable(const Image &image, const FixupTable &table) {
  std::vector<std::string> problems;
  const std::size_t common = std::min(table.needed.size(), table.present.size());
  for (std::size_t i = 0; i < common; ++i) {
    const FixupRecord &needed = table.needed[i];
    const FixupRecord &present = table.present[i];
    const auto compare = [&](std::string_view field, std::uint64_t is, std::uint64_t shouldBe) {
      if (is != shouldBe) {
        problems.push_back(fmt::format("{}: {} is {:#x}, should be {:#x}",
                                       nameRecord(image, i, needed), field, is, shouldBe));
      }
    };
    compare("target", present.target, needed.target);
    compare("addend", present.addend, needed.addend);
    compare("slot", present.slot, needed.slot);
    compare("kind word", present.kindWord, needed.kindWord);
  }
  for (std::size_t i = common; i < table.needed.size(); ++i)
    problems.push_back(nameRecord(image, i, table.needed[i]) + ": missing");
  for (std::size_t i = common; i < table.present.size(); ++i)
    problems.push_back(nameRecord(image, i, table.present[i]) + ": not needed");

  const Section *section = image.findSection(kSectionName);
  for (std::size_t i = 0; i < table.present.size(); ++i) {
    const std::uint32_t wordSize = image.pointerSize();
    const Rva record = section->rva + (static_cast<Rva>(i) + 1) * kWords * wordSize;
    if (!image.hasBaseRelocation(record) || !image.hasBaseRelocation(record + 2 * wordSize)) {
      problems.push_back(nameRecord(image, i, table.present[i]) +
                         ": its addresses are not relocated with the image");
    }
  }
  if (!section->isWritable())
    problems.push_back("the fixup table is not in writable data");
  return problems;
}

} // namespace wrt::pe
