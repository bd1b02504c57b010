#include "CatalogueComparison.h"
#include "Metadata.h"
#include "ProductRules.h"
#include "Tool.h"

#include <fmt/core.h>

#include <iostream>

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

/// The errors of what is read in an image do not name its file.
Metadata readMetadata(const Image &image, const std::string &file) {
  return naming(file, [&] { return Metadata::read(image); });
}

int check(const wrt::Arguments &given) {
  const std::string &file = given["IMAGE"];
  const Image image = Image::read(file);
  const Metadata metadata = readMetadata(image, file);
  ProductFacts facts = readFacts(given["IMPORTS"], given["NAMES"]);
  facts.functions = {given.all("FUNCTION").begin(), given.all("FUNCTION").end()};
  return summarize(metadata, naming(file, [&] { return checkProduct(image, metadata, facts); }));
}

} // namespace

int main(int argc, char **argv) {
  wrt::Tool tool(
      "inspectimage",
      "Reads the headers and the Objective-C metadata of an image. The last line of all\n"
      "commands but 'facts' says what was seen.");
  tool.command("facts", {"IMAGE"}, "machine, sections, exports, imports, relocations",
               [](const wrt::Arguments &given) { return facts(Image::read(given["IMAGE"])); });
  tool.command(
      "metadata", {"IMAGE"}, "every class and protocol as text", [](const wrt::Arguments &given) {
        const Metadata metadata = readMetadata(Image::read(given["IMAGE"]), given["IMAGE"]);
        writeText(metadata, std::cout);
        return summarize(metadata, {});
      });
  tool.command("check", {"IMAGE", "IMPORTS", "NAMES", "FUNCTION..."},
               "what must hold of an image that exports the FUNCTIONs; IMPORTS has a line\n"
               "'library symbol' for each import but those of WRTBridge_zorvex.dll that follow\n"
               "from declarations, which NAMES has",
               check);
  tool.command("compare", {"IMAGE", "CATALOGUE"}, "the methods against the generator's catalogue",
               [](const wrt::Arguments &given) {
                 const Metadata metadata =
                     readMetadata(Image::read(given["IMAGE"]), given["IMAGE"]);
                 const auto methods = wrt::catalogue::readMethods(given["CATALOGUE"]);
                 return summarize(metadata, compareWithCatalogue(metadata, methods));
               });
  return tool.run(argc, argv);
}
