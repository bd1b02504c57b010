// inspectimage facts IMAGE                machine, sections, exports, imports, relocations
// inspectimage metadata IMAGE             every class and protocol as text
// inspectimage check IMAGE IMPORTS NAMES FUNCTION...
//     what must hold of an image that exports the FUNCTIONs; IMPORTS has a line `library symbol`
//     for each import but those of WRTBridge_zorvex.dll that follow from declarations, which NAMES
//     has
// inspectimage compare IMAGE CATALOGUE    the methods against the generator's catalogue
//
// The last line of all but `facts` says what was seen. Exit status: 0 when all is well, 1 when
// something differs or the image cannot be read, 2 for wrong usage.
#include "CatalogueComparison.h"
#include "Metadata.h"
#include "ProductRules.h"

#include <fmt/core.h>

#include <iostream>
#include <string_view>

namespace {

using namespace wrt::pe;

int facts(const Image &image) {
  std::cout << fmt::format(
      "machine {:#x}\ncharacteristics {:#x}\nDLL characteristics {:#x}\n"
      "subsystem {}\npreferred base {:#x}\nsize in memory {}\nentry point {}\n",
      image.machine(), image.characteristics(), image.dllCharacteristics(), image.subsystem(),
      image.preferredBase(), image.size(), image.describe(image.entryPoint()));
  for (const Section &section : image.sections()) {
    std::cout << "section " << section.name << ' ' << (section.isReadable() ? 'r' : '-')
              << (section.isWritable() ? 'w' : '-') << (section.isExecutable() ? 'x' : '-') << ' '
              << section.virtualSize << " bytes\n";
  }
  for (const Export &each : image.exports())
    std::cout << "export " << each.name << '\n';
  for (const Import &import : image.imports())
    std::cout << "import " << import.library << ' ' << import.name << '\n';
  std::size_t moves = 0;
  for (const BaseRelocation &relocation : image.baseRelocations())
    moves += relocation.kind == RelocationKind::kThumbMove;
  std::cout << image.sections().size() << " sections, " << image.exports().size() << " exports, "
            << image.imports().size() << " imports, " << image.baseRelocations().size()
            << " base relocations (" << moves << " MOVW/MOVT pairs)\n";
  return 0;
}

ProductFacts readFacts(const std::string &imports, const std::string &names) {
  ProductFacts facts;
  for (const std::string &line : wrt::catalogue::readLines(imports))
    facts.imports.insert(line);
  // Export lines of a module definition: a name, and DATA for what is no function.
  for (const std::string &line : wrt::catalogue::readLines(names))
    facts.imports.insert("WRTBridge_zorvex.dll " + line.substr(0, line.find(' ')));
  return facts;
}

int summarize(const Metadata &metadata, const std::vector<std::string> &differences) {
  for (const std::string &difference : differences)
    std::cout << difference << '\n';
  std::cout << metadata.classes.size() << " classes, " << metadata.methodCount() << " methods, "
            << metadata.protocols.size() << " protocols, " << differences.size()
            << " differences\n";
  return differences.empty() ? 0 : 1;
}

} // namespace

int main(int argc, char **argv) {
  const std::string_view command = argc > 2 ? argv[1] : "";
  try {
    if (command == "facts" && argc == 3)
      return facts(Image::read(argv[2]));
    if (command == "metadata" && argc == 3) {
      const Metadata metadata = Metadata::read(Image::read(argv[2]));
      writeText(metadata, std::cout);
      return summarize(metadata, {});
    }
    if (command == "check" && argc > 5) {
      const Image image = Image::read(argv[2]);
      const Metadata metadata = Metadata::read(image);
      ProductFacts facts = readFacts(argv[3], argv[4]);
      facts.functions = {argv + 5, argv + argc};
      return summarize(metadata, checkProduct(image, metadata, facts));
    }
    if (command == "compare" && argc == 4) {
      const Metadata metadata = Metadata::read(Image::read(argv[2]));
      return summarize(metadata,
                       compareWithCatalogue(metadata, wrt::catalogue::readMethods(argv[3])));
    }
  } catch (const std::runtime_error &error) {
    std::cerr << "inspectimage: " << argv[2] << ": " << error.what() << '\n';
    return 1;
  }
  std::cerr << "usage: inspectimage facts|metadata IMAGE | check IMAGE IMPORTS NAMES FUNCTION... | "
               "compare IMAGE CATALOGUE\n";
  return 2;
}
