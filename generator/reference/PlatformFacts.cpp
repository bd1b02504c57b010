#include "generator/reference/PlatformFacts.h"

#include <algorithm>
#include <sstream>

namespace bridgegen {

namespace {

/// The name that all instances of a family share: the platform writes them once.
std::string nameOf(const InterfaceType &interface) {
  if (!interface.instance)
    return interface.simpleName();
  const std::string &family = interface.instance->familyName;
  return family.substr(family.rfind('.') + 1);
}

/// The interface that decides whether there are such objects.
const InterfaceType *decisive(const Type &type) {
  if (type.kind == Kind::Interface)
    return &asInterface(type);
  if (type.kind != Kind::Class)
    return nullptr;
  const ClassType &of = asClass(type);
  if (of.defaultInterface())
    return of.defaultInterface();
  return of.classSide.empty() ? nullptr : of.classSide[0].interface;
}

} // namespace

PlatformFacts::PlatformFacts(const Source &source, Diagnostics &diagnostics) : isKnown_(true) {
  std::istringstream lines(source.text);
  unsigned number = 0;
  for (std::string line; std::getline(lines, line);) {
    ++number;
    const long tabs = std::ranges::count(line, '\t');
    const size_t tab = line.find('\t');
    if (line.empty() || tab == 0 || tabs > 1)
      diagnostics.error({&source, number, 1}, "expected an interface, or an interface and one of "
                                              "its functions");
    else if (tabs == 0)
      interfaces_.insert(line);
    else
      refused_.emplace(line.substr(0, tab), line.substr(tab + 1));
  }
}

std::string PlatformFacts::of(const Type &type) const {
  const InterfaceType *interface = decisive(type);
  if (!isKnown_ || interface == nullptr)
    return "";
  if (!interfaces_.contains(nameOf(*interface)))
    return "no";
  const bool isPart = std::ranges::any_of(
      interface->members, [&](const Member &member) { return lacks(*interface, member); });
  return isPart ? "partly" : "yes";
}

bool PlatformFacts::lacks(const InterfaceType &interface, const Member &member) const {
  const std::string name = nameOf(interface);
  return interfaces_.contains(name) && refused_.contains({name, member.functionName()});
}

} // namespace bridgegen
