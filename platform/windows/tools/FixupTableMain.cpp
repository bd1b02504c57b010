// fixuptable make IMAGE OUT.s    the table's records, from an image without them
// fixuptable check IMAGE         verifies the table of the final image
//
// Exit status: 0 when all is well, 1 when the table is wrong or the image cannot be read, 2 for
// wrong usage.
#include "FixupTable.h"

#include <fstream>
#include <iostream>
#include <map>
#include <string_view>

namespace {

using namespace wrt::pe;

int make(const Image &image, const char *output) {
  const FixupTable table = FixupTable::read(image);
  std::ofstream out(output);
  writeAssembly(image, table, out);
  out.flush();
  if (!out) {
    std::cerr << "fixuptable: cannot write " << output << '\n';
    return 1;
  }
  return 0;
}

int check(const Image &image, const char *file) {
  const FixupTable table = FixupTable::read(image);
  const auto problems = checkTable(image, table);
  constexpr std::size_t kShown = 20;
  for (std::size_t i = 0; i < problems.size() && i < kShown; ++i)
    std::cerr << file << ": " << problems[i] << '\n';
  if (problems.size() > kShown)
    std::cerr << file << ": and " << problems.size() - kShown << " more\n";
  if (!problems.empty())
    return 1;

  std::map<std::string_view, int> bySymbol;
  for (const FixupRecord &record : table.present)
    ++bySymbol[image.importAt(record.slot)->name];
  for (const auto &[symbol, count] : bySymbol)
    std::cout << count << '\t' << symbol << '\n';
  std::cout << table.present.size() << " records, " << table.constantStrings
            << " constant strings, 0 differences\n";
  return 0;
}

} // namespace

int main(int argc, char **argv) {
  const std::string_view command = argc > 1 ? argv[1] : "";
  try {
    if (command == "make" && argc == 4)
      return make(Image::read(argv[2]), argv[3]);
    if (command == "check" && argc == 3)
      return check(Image::read(argv[2]), argv[2]);
  } catch (const FormatError &error) {
    std::cerr << "fixuptable: " << argv[2] << ": " << error.what() << '\n';
    return 1;
  }
  std::cerr << "usage: fixuptable make IMAGE OUT.s | fixuptable check IMAGE\n";
  return 2;
}
