#include "generator/emit/Documentation.h"

#include <algorithm>
#include <string_view>

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

/// What of a member's is the caller's to give up.
std::string ownershipOf(const Member &member) {
  for (const Parameter &parameter : member.parameters) {
    // An array that WinRT allocates, and that travels as a C array.
    if (parameter.isArray() && !parameter.isObjectArray() && parameter.isHandedOut() &&
        !parameter.passing->isFill)
      return " The array is the caller's: `WRTTaskMemFree`.";
  }
  const bool givesHandle =
      member.result && member.result->kind == Kind::Struct &&
      std::ranges::any_of(asStruct(*member.result).fields,
                          [](const StructType::Field &field) { return field.type->isString(); });
  return givesHandle ? " The handle in it is the caller's: `WRTHSTRINGRelease`." : "";
}

/// The interface pointer that an accessor or an activation gives.
std::string pointerOf(const BridgeMethod &method) {
  if (method.what == BridgeMethod::What::Activation)
    return "A new default instance";
  return (method.method.isClassMethod ? "The activation factory as `" : "The object as `") +
         method.interface->name + "`";
}

/// Of an operation: whether its result cannot be read.
std::string readabilityOf(const Member &member) {
  constexpr std::string_view kOperation = "Windows.Foundation.IAsyncOperation";
  if (!member.result || member.result->kind != Kind::Interface)
    return "";
  const InterfaceType &operation = asInterface(*member.result);
  if (!operation.isProxyOnly() || !operation.instance ||
      !operation.instance->familyName.starts_with(kOperation))
    return "";
  return " The operation is a proxy: its result, `" + operation.instance->arguments.front()->name +
         "`, cannot be read here.";
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
  return name + (type.isActivatable ? ". `init` makes a new one."
                                    : ". Cannot be activated: `init` is logged and gives nil.");
}

std::string describe(const BridgeMethod &method) {
  if (method.what != BridgeMethod::What::Member)
    return pointerOf(method) + " (+1, given up with `WRTIUnknownRelease`), or null.";
  return memberName(*method.member) + " (slot " + std::to_string(method.member->slot) + ")." +
         ownershipOf(*method.member) + readabilityOf(*method.member);
}

std::string measureOf(const StructType &type) {
  if (type.name == "Windows.Foundation.DateTime")
    return ": 100 nanoseconds each, since 1 January 1601, UTC";
  return type.name == "Windows.Foundation.TimeSpan" ? ": 100 nanoseconds each" : "";
}

} // namespace bridgegen
