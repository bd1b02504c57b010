// armsweep CATALOGUE IDENTIFIERS DLL...
//
// Calls every generated method of the product, the last DLL, as ARM code: on a bridge of an object
// that looks at what reaches it, or on the class, whose factory that object is. The last line says
// how many methods and outcomes there were. Exit status: 0 when nothing was wrong, 1 otherwise, 2
// for wrong usage.
#include "ArmMachine.h"
#include "tests/exhaustive/MethodCall.h"

#include <iostream>

using namespace wrt::test;

int main(int argc, char **argv) {
  if (argc < 4) {
    std::cerr << "usage: armsweep CATALOGUE IDENTIFIERS DLL...\n";
    return 2;
  }
  try {
    wrt::sweep::ArmMachine machine({argv + 3, argv + argc});
    return sweep(machine, readCatalogue(argv[1]), Identifiers::read(argv[2]), "arm") > 0 ? 0 : 1;
  } catch (const std::exception &error) {
    std::cerr << "armsweep: " << error.what() << '\n';
    return 1;
  }
}
