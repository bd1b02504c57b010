// Fixup tables of arbitrary contents. Whatever they say, the pass writes nothing outside the image,
// opens every page before it writes there (a write to a closed page crashes) and puts all
// protections back.
#include "TestTable.h"

#include <cstdio>
#include <cstdlib>

using namespace wrt::startup;
using namespace wrt::startup::test;

namespace {

constexpr std::uint32_t kPages = 8;

Address slotAt(std::uint32_t number, const TestProcess &process) {
  return TestProcess::kBase + number % (process.imageSize() - 4);
}

void require(bool condition, const char *what) {
  if (condition)
    return;
  std::fprintf(stderr, "violated: %s\n", what);
  std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
  constexpr std::uint32_t kChoices[] = {kPageReadOnly, kPageReadWrite, kPageWriteCopy,
                                        kPageExecuteRead, kPageExecuteReadWrite};
  if (size < kPages + 1)
    return 0;
  std::vector<std::uint32_t> layout;
  layout.reserve(kPages);
  for (std::uint32_t i = 0; i < kPages; ++i)
    layout.push_back(kChoices[data[i] % 5]);
  const std::uint8_t flags = data[kPages];
  data += kPages + 1;
  size -= kPages + 1;

  TestProcess process(layout);
  process.hasMemory = flags & 1;
  process.allowsProtect = flags & 2;
  TestTable table;
  if (flags & 4) {
    // Arbitrary records, but for their slots: those are the loader's and can be read.
    for (; size >= 16; data += 16, size -= 16) {
      table.add(readWord(data), readWord(data + 4), slotAt(readWord(data + 8), process),
                readWord(data + 12));
    }
    table.bytes().insert(table.bytes().end(), data, data + size);
  } else {
    // Records of few bytes, whose targets lie at the ends of pages, the image's among them.
    constexpr std::uint32_t kKinds[] = {0x10, 0x110, 0x00, 0x10, 0x110, 0x10, 0x110, 0x20};
    for (; size >= 4; data += 4, size -= 4) {
      const Address boundary = TestProcess::kBase + data[0] % (kPages + 1) * TestProcess::kPageSize;
      table.add(boundary - 12 + data[1] % 24, 0xFFFFFFFF, slotAt(data[2], process),
                kKinds[data[3] % 8]);
    }
  }

  bool aborted = false;
  try {
    table.apply(process);
  } catch (const Aborted &) {
    aborted = true;
  }
  require(process.surroundingsAreIntact(), "nothing outside the image is written");
  if (!aborted) {
    require(process.protections() == layout, "all protections are put back");
    require(process.blocks.empty(), "the copy of the table is released");
  }
  return 0;
}
