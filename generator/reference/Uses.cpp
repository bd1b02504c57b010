#include "generator/reference/Uses.h"

namespace bridgegen {

Uses::Uses(const Model &model) {
  for (const auto &unit : model.units()) {
    for (const InterfaceType *interface : unit->interfaces) {
      // What an instance passes is known from its name; those who name the instance are listed.
      if (interface->isInstance)
        continue;
      for (const Member &member : interface->members) {
        if (!member.isBridged())
          continue;
        if (member.result)
          add(*member.result, {interface, &member, true});
        for (const Parameter &parameter : member.parameters)
          add(*parameter.type, {interface, &member, parameter.isHandedOut()});
      }
    }
  }
}

const std::vector<TypeUse> &Uses::of(const Type &type) const {
  static const std::vector<TypeUse> none;
  const auto found = uses_.find(&type);
  return found == uses_.end() ? none : found->second;
}

void Uses::add(const Type &type, const TypeUse &use) {
  std::vector<TypeUse> &uses = uses_[&type];
  // The same member may name the type several times, and does so one after the other.
  for (auto known = uses.rbegin(); known != uses.rend() && known->member == use.member; ++known) {
    if (known->isGiven == use.isGiven)
      return;
  }
  uses.push_back(use);
  if (type.kind == Kind::Interface && asInterface(type).instance) {
    for (const Type *argument : asInterface(type).instance->arguments)
      add(*argument, use);
  } else if (type.isDelegate()) {
    // A handler is given what it takes.
    for (const DelegateType::Argument &argument : asDelegate(type).arguments)
      add(*argument.type, {use.interface, use.member, true});
  }
}

} // namespace bridgegen
