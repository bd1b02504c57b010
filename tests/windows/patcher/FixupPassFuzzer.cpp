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

std::uint32_t word(const std::uint8_t *bytes) { return readWord(bytes); }

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
  for (std::uint32_t i = 0; i < kPages; ++i)
    layout.push_back(kChoices[data[i] % 5]);
  const std::uint8_t flags = data[kPages];
  data += kPages + 1;
  size -= kPages + 1;

  TestProcess process(layout);
  process.hasMemory = flags & 1;
  process.allowsProtect = flags & 2;
  const bool nearTargets = flags & 4;
  TestTable table;
  for (; size >= 16; data += 16, size -= 16) {
    // Slots are the loader's and can be read; everything else is as wild as the input. Most targets
    // are kept near the image, for the interesting cases to come up.
    Address target = word(data);
    if (nearTargets)
      target = TestProcess::kBase - 0x100 + target % (process.imageSize() + 0x200);
    const Address slot = TestProcess::kBase + word(data + 8) % (process.imageSize() - 4);
    table.add(target, word(data + 4), slot, word(data + 12));
  }
  table.bytes().insert(table.bytes().end(), data, data + size);

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
