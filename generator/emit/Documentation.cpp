#include "generator/emit/Documentation.h"

namespace bridgegen {

namespace {

std::string listed(const std::vector<std::string> &names) {
  std::string text;
  for (size_t i = 0; i < names.size(); ++i)
    text += (i == 0 ? "" : i + 1 == names.size() ? " and " : ", ") + ("`" + names[i] + "`");
  return text;
}

std::string memberName(const Member &member) {
  switch (member.kind) {
  case MemberKind::Getter:
    return "Reads `" + member.name + "`";
  case MemberKind::Setter:
    return "Writes `" + member.name + "`";
  case MemberKind::EventAdd:
    return "Adds a handler of `" + member.name + "`";
  case MemberKind::EventRemove:
    return "Removes a handler of `" + member.name + "`";
  case MemberKind::Method:
  case MemberKind::Reserved:
    break;
  }
  if (member.overloadedName.empty() || member.overloadedName == member.name)
    return "Calls `" + member.name + "`";
  return "Calls `" + member.overloadedName + "`, the overload `" + member.name + "`";
}

/// Who offers more for the object behind a proxy.
std::string leadsFurther(const InterfaceType &proxy, const Model &model) {
  std::vector<std::string> names;
  for (const ClassType *type : model.implementers(proxy))
    names.push_back(type->bridgeClass());
  return names.empty() ? "its object can be passed on and cast"
                       : "its object may be cast to " + listed(names);
}

std::string leadsFurther(const ClassType &proxy) {
  std::vector<std::string> names;
  for (const ClassType::Listed &listed : proxy.interfaces) {
    if (listed->isFull())
      names.push_back(listed->bridgeClass());
  }
  return names.empty() ? "its objects can be passed on and cast"
                       : "it has the members of " + listed(names);
}

} // namespace

std::string describeProtocol(const InterfaceType &interface, const Model &model) {
  const std::string name = "`" + interface.name + "` {" + interface.iid.upper() + "}";
  if (interface.isProxyOnly())
    return name + ". Proxy: " + leadsFurther(interface, model) + ".";
  if (!interface.isClassSide())
    return name + ".";
  const ClassType *owner = model.classSideOwner(interface);
  const std::string kind = interface.form == Form::Statics ? "Static members" : "Constructors";
  return name + ". " + kind + (owner ? " of `" + owner->bridgeClass() + "`." : ".");
}

std::string describeClass(const BridgeClass &bridge, const Model &model) {
  const std::string name = "`" + bridge.type->name + "`";
  if (bridge.type->kind == Kind::Interface) {
    const InterfaceType &interface = asInterface(*bridge.type);
    return name + (interface.isFull() ? ", the interface."
                                      : ". Proxy: " + leadsFurther(interface, model) + ".");
  }
  const ClassType &type = asClass(*bridge.type);
  if (type.isProxy())
    return name + ". Proxy: " + leadsFurther(type) + ".";
  return name + (type.isActivatable ? ". `init` makes a new one." : ".");
}

std::string describe(const BridgeMethod &method) {
  if (method.what == BridgeMethod::What::Activation)
    return "A new default instance (+1), or null.";
  if (method.what == BridgeMethod::What::Accessor)
    return method.method.isClassMethod
               ? "The activation factory as `" + method.interface->name + "` (+1), or null."
               : "The object as `" + method.interface->name + "` (+1), or null.";
  return memberName(*method.member) + " (slot " + std::to_string(method.member->slot) + ").";
}

} // namespace bridgegen
