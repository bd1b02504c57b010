#include "generator/emit/MemberConstant.h"

#include <algorithm>
#include <set>

namespace bridgegen {

namespace {

std::string spelled(const Fact &fact) {
  switch (fact.what) {
  case Fact::What::Accessor:
    return accessorFunction(*fact.type);
  case Fact::What::Class:
    return classReference(*fact.type);
  case Fact::What::Maker:
    break;
  }
  return "delegates::" + fact.type->bridgeName;
}

} // namespace

std::string constantName(const Member &member) {
  static const std::set<std::string> kWords{
      "Array",          "Boolean",        "BulkRead",     "Capacity",     "Delegate",
      "Fill",           "Interface",      "Member",       "Object",       "Out",
      "Pointer",        "ReturnedArray",  "ReturnedFill", "RuntimeClass", "String",
      "StringElements", "ObjectElements", "Value",        "Void"};
  const std::string name = member.functionName();
  return kWords.contains(name) ? name + "_" : name;
}

std::string accessorFunction(const Type &type) {
  const InterfaceType *interface = crossingInterface(type);
  return (interface ? interface->bridgeName : "IInspectable") + "::interface";
}

std::string classReference(const Type &type) { return "&k" + type.bridgeClass() + "Class"; }

std::string memberConstant(const Member &member, const std::string &name,
                           const std::string &accessor, const std::string &maker) {
  const Shape shape = shapeOf(member);
  std::string text = "Member<" + shape.signature() + "> " + name + "{" + accessor + ", " +
                     std::to_string(member.slot);
  for (const Fact &fact : shape.facts())
    text += ", " + (fact.what == Fact::What::Maker && !maker.empty() ? maker : spelled(fact));
  return text + "}";
}

bool needsConstantPerClass(const Member &member) {
  return std::any_of(member.parameters.begin(), member.parameters.end(), [](const Parameter &each) {
    return each.type->isDelegate() && asDelegate(*each.type).returnsObject();
  });
}

} // namespace bridgegen
