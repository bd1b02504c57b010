// Any bytes are refused as an image, or everything that the tools read of one stays within it; and
// the same for a linker's map.

#include "platform/windows/tools/FixupTable.h"
#include "platform/windows/tools/LinkMap.h"
#include "platform/windows/tools/Metadata.h"
#include "platform/windows/tools/UnwindData.h"

#include <fstream>
#include <sstream>

namespace {

using namespace wrt::pe;

template <class Read>
void attempt(const Read &read) {
  try {
    read();
  } catch (const FormatError &) {
  }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  // Whatever is no image is tried as a map.
  if (size < 2 || data[0] != 'M' || data[1] != 'Z') {
    constexpr const char *kFile = "input.map";
    std::ofstream(kFile, std::ios::binary)
        .write(reinterpret_cast<const char *>(data), static_cast<std::streamsize>(size));
    attempt([&] { (void)LinkMap::read(kFile); });
    return 0;
  }
  attempt([&] {
    const Image image = Image::parse({data, data + size});
    attempt([&] { (void)checkTable(image, FixupTable::read(image)); });
    attempt([&] { (void)readUnwindRecords(image); });
    std::ostringstream text;
    attempt([&] { writeText(Metadata::read(image), text); });
  });
  return 0;
}
