#include "FixupTable.h"
#include "Output.h"
#include "Tool.h"

#include <iostream>
#include <map>
#include <sstream>
#include <string_view>

namespace {

using namespace wrt::pe;

/// The table's errors do not name the image's file.
FixupTable readTable(const Image &image, const std::string &file) {
  return naming(file, [&] { return FixupTable::read(image); });
}

int make(const std::string &file, const std::string &output) {
  const Image image = Image::read(file);
  std::ostringstream text;
  writeAssembly(image, readTable(image, file), text);
  wrt::save(output, text.str());
  return 0;
}

int check(const std::string &file) {
  const Image image = Image::read(file);
  const FixupTable table = readTable(image, file);
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
  wrt::Tool tool("fixuptable",
                 "Makes and checks the fixup table of an image, which start-up applies.");
  tool.command("make", {"IMAGE", "OUT.s"}, "writes the table's records, from an image without them",
               [](const wrt::Arguments &given) { return make(given["IMAGE"], given["OUT.s"]); });
  tool.command("check", {"IMAGE"}, "verifies the table of the final image",
               [](const wrt::Arguments &given) { return check(given["IMAGE"]); });
  return tool.run(argc, argv);
}
