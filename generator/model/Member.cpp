#include "generator/model/Member.h"

#include "generator/model/Type.h"

namespace bridgegen {

bool Parameter::isObjectArray() const { return isArray() && !type->isValue(); }

bool Parameter::isResult() const { return isObjectArray() && passing->objects->isResult; }

const std::string &Parameter::nameOf(Word word) const {
  switch (word) {
  case Word::Count:
    return countName;
  case Word::FilledCount:
    return filledName;
  case Word::Value:
    break;
  }
  return name;
}

const Type &Parameter::typeOf(Word word) const {
  switch (word) {
  case Word::Count:
    return *countType;
  case Word::FilledCount:
    return *filledType;
  case Word::Value:
    break;
  }
  return *type;
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
