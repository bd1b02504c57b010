#include "generator/project/CheckSelectors.h"

#include "generator/project/Selector.h"

namespace bridgegen {

namespace {

void checkInterface(const InterfaceType &interface, Diagnostics &diagnostics) {
  std::map<std::string, const Member *> selectors;
  for (const Member &member : interface.members) {
    if (!member.isBridged())
      continue;
    const auto [other, isNew] = selectors.emplace(selector(member), &member);
    if (!isNew)
      diagnostics.error(interface.isInstance ? interface.at : member.at,
                        "selector " + quoted(other->first) + " is already that of member " +
                            quoted(other->second->name));
  }
}

void checkClass(const ClassType &type, Diagnostics &diagnostics) {
  std::map<std::string, const Type *> instanceSelectors;
  std::map<std::string, const Type *> classSelectors;
  const auto add = [&](const std::vector<ClassType::Listed> &interfaces, auto &selectors) {
    for (const ClassType::Listed &listed : interfaces) {
      for (const Member &member : listed->members) {
        if (!member.isBridged())
          continue;
        const auto [other, isNew] = selectors.emplace(selector(member), listed.interface);
        // Twice in the same interface is told there.
        if (!isNew && other->second != listed.interface)
          diagnostics.error(listed.at,
                            "selector " + quoted(other->first) + " of " + quoted(listed->name) +
                                " is already that of a member of " + quoted(other->second->name));
      }
    }
  };
  add(type.interfaces, instanceSelectors);
  add(type.classSide, classSelectors);
}

} // namespace

void checkSelectors(const Model &model, Diagnostics &diagnostics) {
  for (const Unit *unit : model.ownUnits()) {
    for (const InterfaceType *interface : unit->interfaces)
      checkInterface(*interface, diagnostics);
    for (const ClassType *type : unit->classes)
      checkClass(*type, diagnostics);
  }
}

} // namespace bridgegen
