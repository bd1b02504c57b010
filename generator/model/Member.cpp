#include "generator/model/Member.h"

#include "generator/model/Type.h"

namespace bridgegen {

bool Parameter::isObjectArray() const { return isArray() && !type->isValue(); }

bool Parameter::isResult() const {
  return isObjectArray() && (passing == Passing::BulkRead || passing == Passing::ReturnedArray ||
                             passing == Passing::ReturnedFillArray);
}

bool Member::isDelegateProperty() const {
  if (kind == MemberKind::Getter)
    return result->isDelegate();
  return kind == MemberKind::Setter && parameters[0].type->isDelegate();
}

bool Member::isBridged() const {
  return kind != MemberKind::Reserved && !(kind == MemberKind::Getter && isDelegateProperty());
}

const Parameter *Member::resultParameter() const {
  for (const Parameter &parameter : parameters) {
    if (parameter.isResult())
      return &parameter;
  }
  return nullptr;
}

std::string Member::functionName() const {
  switch (kind) {
  case MemberKind::Getter:
    return "get_" + name;
  case MemberKind::Setter:
    return "put_" + name;
  case MemberKind::EventAdd:
    return "add_" + name;
  case MemberKind::EventRemove:
    return "remove_" + name;
  case MemberKind::Reserved:
    return "Slot" + std::to_string(slot);
  case MemberKind::Method:
    break;
  }
  return name;
}

} // namespace bridgegen
