#include "ArmMachine.h"

#include "Tool.h"
#include "tests/exhaustive/MethodCall.h"

using namespace wrt::test;

int main(int argc, char **argv) {
  wrt::Tool tool(
      "armsweep",
      "Calls every generated method of the product, the last DLL, as ARM code: on a bridge of\n"
      "an object that looks at what reaches it, or on the class, whose factory that object\n"
      "is. The last line says how many methods and outcomes there were.",
      "0 when nothing was wrong, 1 otherwise, 2 for wrong usage.");
  tool.arguments({"CATALOGUE", "IDENTIFIERS", "DLL..."}, [](const wrt::Arguments &given) {
    wrt::sweep::ArmMachine machine(given.all("DLL"));
    return sweep(machine, readCatalogue(given["CATALOGUE"]),
                 Identifiers::read(given["IDENTIFIERS"]), "arm") > 0
               ? 0
               : 1;
  });
  return tool.run(argc, argv);
}
