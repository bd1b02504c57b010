#include "generator/emit/MemberConstant.h"

#include <algorithm>

namespace bridgegen {

namespace {

std::string spelled(const Fact &fact) {
  switch (fact.kind) {
  case FactKind::Accessor:
    return accessorFunction(*fact.type);
  case FactKind::Class:
    return classReference(*fact.type);
  case FactKind::Maker:
    break;
  }
  return "delegates::" + fact.type->scopeName();
}

} // namespace

std::string constantName(const Member &member) {
  const std::string name = member.functionName();
  const bool hides =
      std::ranges::find(kMarshalWords, name, &MarshalWord::name) != std::end(kMarshalWords);
  return hides ? name + "_" : name;
}

std::string accessorFunction(const Type &type) {
  const InterfaceType *interface = crossingInterface(type);
  return (interface ? interface->scopeName() : "IInspectable") + "::interface";
}

std::string classReference(const Type &type) { return "&k" + type.bridgeClass() + "Class"; }

std::string memberConstant(const Member &member, const std::string &name,
                           const std::string &accessor, const std::string &maker) {
  const Shape shape = shapeOf(member);
  std::string text = "Member<" + shape.signature() + "> " + name + "{" + accessor + ", " +
                     std::to_string(member.slot);
  for (const Fact &fact : shape.facts())
    text += ", " + (fact.kind == FactKind::Maker && !maker.empty() ? maker : spelled(fact));
  return text + "}";
}

bool needsConstantPerClass(const Member &member) {
  return std::any_of(member.parameters.begin(), member.parameters.end(), [](const Parameter &each) {
    return each.type->isDelegate() && asDelegate(*each.type).returnsObject();
  });
}

} // namespace bridgegen
