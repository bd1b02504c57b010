// armsweep CATALOGUE IDENTIFIERS DLL...
//
// Calls every generated method of the product, the last DLL, as ARM code: on a bridge of an object
// that looks at what reaches it, or on the class, whose factory that object is. Each member is
// called three times (the slot succeeds, fails, is not there), each accessor and each activation
// twice. The last line says how many methods and outcomes there were. Exit status: 0 when nothing
// was wrong, 1 otherwise, 2 for wrong usage.
#include "Stage.h"

#include "Text.h"

#include <iostream>

namespace {

using namespace wrt::sweep;

constexpr std::size_t kPrinted = 50;

int sweep(const std::string &catalogueFile, const std::string &identifiersFile,
          const std::vector<std::string> &images) {
  const Identifiers identifiers = Identifiers::read(identifiersFile);
  Stage stage(images, identifiers);
  std::size_t methods = 0;
  std::size_t outcomes = 0;
  std::size_t wrong = 0;
  for (const wrt::catalogue::Method &method : wrt::catalogue::readMethods(catalogueFile)) {
    // The hand-written classes are in no line of the identifiers; they have tests of their own.
    if (!identifiers.classes.count(method.className) &&
        !identifiers.bridges.count(method.className))
      continue;
    ++methods;
    for (const Outcome outcome :
         {Outcome::kSuccess, Outcome::kFailing, Outcome::kInterfaceMissing}) {
      if (outcome == Outcome::kFailing && !method.slot)
        continue;
      ++outcomes;
      static const char *const kNames[] = {"success", "failing", "interface missing"};
      for (const std::string &problem : stage.call(method, outcome))
        if (++wrong <= kPrinted)
          std::cout << method.name() << " (" << kNames[static_cast<int>(outcome)]
                    << "): " << problem << '\n';
    }
  }
  std::cout << "arm: " << methods << " methods, " << outcomes << " outcomes, " << wrong
            << " wrong\n";
  return methods > 0 && wrong == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char **argv) {
  if (argc < 4) {
    std::cerr << "usage: armsweep CATALOGUE IDENTIFIERS DLL...\n";
    return 2;
  }
  try {
    return sweep(argv[1], argv[2], {argv + 3, argv + argc});
  } catch (const std::exception &error) {
    std::cerr << "armsweep: " << error.what() << '\n';
    return 1;
  }
}
