#include "StartUp.h"

#include "FixupTable.h"
#include "Metadata.h"

#include <fmt/core.h>

#include <algorithm>
#include <ostream>

namespace wrt::emulator {

namespace {

/// How many records of the table have been applied.
std::size_t patched(Process &process, const Module &module, const pe::FixupTable &table) {
  return static_cast<std::size_t>(
      std::ranges::count_if(table.present, [&](const pe::FixupRecord &record) {
        const auto word = [&](pe::Rva rva) {
          return process.machine().readWord(module.address(rva));
        };
        return word(record.target) == record.addend + word(record.slot);
      }));
}

std::uint32_t registeredImages(Process &process) {
  return process.machine().call(process.find("testRegisteredImages"), {});
}

} // namespace

void startUp(Process &process, const std::vector<std::string> &files, std::ostream &out) {
  const auto attach = [&](Module &module) {
    if (!process.attach(module))
      throw Fault(module.name + " refuses to be attached");
  };
  for (std::size_t i = 0; i + 1 < files.size(); ++i)
    attach(process.load(files[i]));
  Module &product = process.load(files.back());
  const pe::FixupTable table = pe::FixupTable::read(product.image);
  const std::uint32_t images = registeredImages(process);
  process.protectCalls.clear();
  attach(product);

  const pe::Metadata metadata = pe::Metadata::read(product.image);
  out << fmt::format("{}: {} bytes in memory at {:#x}, linked for {:#x}\n"
                     "start-up: {} of {} records patched, {} runs of pages opened and closed\n"
                     "registered: {} image with {} classes, {} methods, {} protocols\n",
                     product.name, product.image.size(), product.base,
                     product.image.preferredBase(), patched(process, product, table),
                     table.present.size(), process.protectCalls.size() / 2,
                     registeredImages(process) - images, metadata.classes.size(),
                     metadata.methodCount(), metadata.protocols.size());
}

} // namespace wrt::emulator
