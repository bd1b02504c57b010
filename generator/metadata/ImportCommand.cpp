#include "generator/metadata/Comparison.h"
#include "generator/metadata/Import.h"
#include "generator/read/Files.h"

#include <fstream>
#include <iostream>
#include <sstream>

namespace bridgegen::metadata {

namespace {

std::string contents(const std::string &path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  if (!file || file.bad())
    throw Refused(path + ": error: cannot be read");
  return text.str();
}

void read(const std::vector<std::string> &paths, Origin origin, std::deque<Source> &sources) {
  for (const std::string &file : declarationFiles(paths))
    sources.emplace_back(file, contents(file), origin);
}

int check(const Library &library, const std::deque<Source> &sources, Diagnostics &diagnostics) {
  const Known known(sources, diagnostics);
  if (diagnostics.hasErrors())
    return 1;
  static constexpr const char *kWords[] = {"lacks", "besides", "slot", "contradicts"};
  size_t counts[4] = {};
  for (const Difference &difference : compare(Types(library, known))) {
    const auto what = static_cast<size_t>(difference.what);
    ++counts[what];
    std::cout << kWords[what] << '\t' << difference.text << '\n';
  }
  std::cerr << counts[0] << " lacking, " << counts[1] << " besides, " << counts[2]
            << " in another slot, " << counts[3] << " contradictions\n";
  return counts[0] + counts[2] + counts[3] ? 1 : 0;
}

int run(const ImportOptions &options, Diagnostics &diagnostics, std::deque<Source> &known,
        std::deque<Source> &written) {
  read(options.known, Origin::Known, known);
  read(options.own, Origin::Own, known);
  // Texts of which the tables are views.
  std::deque<std::string> texts;
  Library library;
  for (const std::string &file : options.files)
    library.add(file, texts.emplace_back(contents(file)));
  if (options.check)
    return check(library, known, diagnostics);
  const std::optional<Imported> imported =
      importTypes(library, known, options.wanted, options.bridgeNames, diagnostics, written);
  if (!imported)
    return 1;
  for (const std::string &note : imported->notes)
    std::cerr << "note: " << note << '\n';
  imported->outputs.commit(options.output);
  std::cerr << imported->types << " types, " << imported->members << " members, "
            << imported->outputs.files().size() << " files\n";
  return 0;
}

} // namespace

int importCommand(const ImportOptions &options) {
  Diagnostics diagnostics;
  std::deque<Source> known;
  std::deque<Source> written;
  int status = 0;
  try {
    status = run(options, diagnostics, known, written);
  } catch (const Refused &refused) {
    std::cerr << refused.what() << '\n';
    return 1;
  }
  diagnostics.print(std::cerr);
  return status;
}

} // namespace bridgegen::metadata
