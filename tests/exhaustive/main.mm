// exhaustive_tests CATALOGUE IDENTIFIERS DIGEST DECLARATIONS.IDL...
//
// Calls every method of the catalogue through the runtime on a recording object, in every outcome,
// and checks what crossed. Before that, that every class of the surface is in the library with its
// superclass and exactly the methods that are listed, and that interfaces have the identifiers that
// the declarations themselves give them, read without bridgegen.

#include "tests/exhaustive/LinuxMachine.h"
#include "tests/exhaustive/MethodCall.h"

#import <objc/runtime.h>

#include <iostream>
#include <regex>
#include <set>

using namespace wrt;
using namespace wrt::test;

namespace {

/// Whether a class is what it is listed as; says what it is otherwise.
bool isAsListed(const catalogue::Class &line, const std::vector<catalogue::Method> &methods) {
  Class type = objc_lookUpClass(line.name.c_str());
  if (!type || line.superclass != class_getName(class_getSuperclass(type))) {
    std::cout << "no class " << line.name << " under " << line.superclass << '\n';
    return false;
  }
  std::multiset<std::string> listed;
  for (const catalogue::Method &method : methods)
    // Comes with automatic reference counting, which this runtime has not.
    if (method.selector != ".cxx_destruct")
      listed.insert(method.side() + method.selector);
  std::multiset<std::string> present;
  for (const char side : {'-', '+'}) {
    unsigned count = 0;
    Method *list = class_copyMethodList(side == '-' ? type : object_getClass(type), &count);
    for (unsigned i = 0; i < count; ++i)
      present.insert(side + std::string(sel_getName(method_getName(list[i]))));
    free(static_cast<void *>(list));
  }
  if (listed != present)
    std::cout << line.name << " has " << present.size() << " methods, " << listed.size()
              << " are listed, or others\n";
  return listed == present;
}

/// Whether every interface of the table has the identifier that its declaration gives it; what has
/// no declaration is an instantiation, whose identifier is made of its name.
bool areAsDeclared(const Identifiers &identifiers, const std::vector<const char *> &files) {
  static const std::regex declaration(
      R"(\binterface\s+(\w+)(?:\s+as\s+(\w+))?\s*\{([0-9a-fA-F-]{36})\})");
  std::map<std::string, Iid> declared;
  for (const char *file : files) {
    std::string text;
    for (const std::string &line : catalogue::readLines(file))
      text += line + "\n";
    for (std::sregex_iterator match(text.begin(), text.end(), declaration), end; match != end;
         ++match)
      declared[(*match)[(*match)[2].matched ? 2 : 1]] = parseIid((*match)[3]);
  }
  bool isRight = true;
  for (const auto &[name, iid] : identifiers.interfaces) {
    const auto found = declared.find(name);
    const bool isNameBased = iid[7] >> 4 == 5 && iid[8] >> 6 == 2;
    if (found == declared.end() ? isNameBased : found->second == iid)
      continue;
    std::cout << name << " has another identifier\n";
    isRight = false;
  }
  return isRight;
}

} // namespace

int main(int argc, char **argv) try {
  if (argc < 5) {
    std::cerr << "usage: exhaustive_tests CATALOGUE IDENTIFIERS DIGEST DECLARATIONS.IDL...\n";
    return 2;
  }
  // Missing interfaces are logged by the library; this is not what is looked at here.
  setenv("WRT_LOG_LEVEL", "1", 1);
  const CatalogueTable table = readCatalogue(argv[1]);
  const Identifiers identifiers = Identifiers::read(argv[2]);
  bool isRight = areAsDeclared(identifiers, {argv + 4, argv + argc});
  std::size_t listed = 0;
  for (const catalogue::Class &line : catalogue::readClasses(argv[3])) {
    const auto found = table.find(line.name);
    static const std::vector<catalogue::Method> none;
    const auto &methods = found == table.end() ? none : found->second;
    isRight &= isAsListed(line, methods);
    // What is written by hand has tests of its own.
    listed += line.isHandWritten() ? 0 : methods.size();
  }
  static LinuxMachine machine;
  return sweep(machine, table, identifiers, "linux") == listed && isRight ? 0 : 1;
} catch (const std::exception &error) {
  std::cerr << "exhaustive_tests: " << error.what() << '\n';
  return 1;
}
