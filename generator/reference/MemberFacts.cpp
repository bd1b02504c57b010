#include "generator/reference/MemberFacts.h"

#include <algorithm>

namespace bridgegen {

namespace {

/// Whether a string is in it, of which a structure has the bare handle.
bool hasHandle(const Type &type) {
  if (type.kind != Kind::Struct)
    return false;
  return std::ranges::any_of(asStruct(type).fields, [](const StructType::Field &field) {
    return field.type->isString() || hasHandle(*field.type);
  });
}

constexpr const char *kHandleIsYours = "The handle in the structure is the caller's: "
                                       "`WRTHSTRINGRelease`.";

void addResult(const Member &member, std::vector<std::string> &sentences) {
  if (member.resultParameter())
    sentences.emplace_back("The array is autoreleased.");
  else if (member.result == nullptr)
    return;
  else if (member.result->isString())
    sentences.emplace_back("The string is autoreleased; WinRT's handle behind it is not released.");
  else if (member.result->isReferenceType())
    sentences.emplace_back("The bridge is autoreleased and holds the object.");
  else if (hasHandle(*member.result))
    sentences.emplace_back(kHandleIsYours);
}

void addParameter(const Parameter &parameter, std::vector<std::string> &sentences) {
  const std::string name = "`" + parameter.name + "`";
  if (parameter.type->isDelegate()) {
    sentences.push_back("The block " + name + " is kept as long as WinRT keeps the handler.");
    return;
  }
  if (!parameter.isHandedOut() || parameter.isResult())
    return;
  const auto &words = parameter.passing->words;
  const bool isAllocated = parameter.isArray() && !parameter.isObjectArray() &&
                           std::ranges::any_of(words, [](const PassedWord &word) {
                             return word.word == Word::Value && word.pointers > 1;
                           });
  if (isAllocated)
    sentences.push_back("The memory of " + name + " is the caller's: `WRTTaskMemFree`.");
  else if (parameter.isObjectArray())
    sentences.push_back("What comes into " + name + " is held by the array.");
  else if (parameter.type->isString() || parameter.type->isReferenceType())
    sentences.push_back("What is stored in " + name + " is autoreleased.");
  if (hasHandle(*parameter.type))
    sentences.emplace_back(kHandleIsYours);
}

} // namespace

std::vector<std::string> ownership(const BridgeMethod &method) {
  if (method.what != BridgeMethod::What::Member)
    return {"The pointer carries a reference of the caller's (+1): `WRTIUnknownRelease`."};
  std::vector<std::string> sentences;
  addResult(*method.member, sentences);
  for (const Parameter &parameter : method.member->parameters)
    addParameter(parameter, sentences);
  return sentences;
}

std::string winrtName(const Member &member) {
  return member.overloadedName.empty() ? member.name : member.overloadedName;
}

const char *kindOf(const Member &member) {
  switch (member.kind) {
  case MemberKind::Getter:
    return "property, read";
  case MemberKind::Setter:
    return "property, written";
  case MemberKind::EventAdd:
    return "event, handler added";
  case MemberKind::EventRemove:
    return "event, handler removed";
  case MemberKind::Method:
  case MemberKind::Reserved:
    break;
  }
  return "method";
}

const char *nullability(const ObjcType &type) {
  switch (type.nullability) {
  case ObjcType::Nullability::Nullable:
    return type.isPointer ? "may be null" : "may be nil";
  case ObjcType::Nullability::Nonnull:
    return type.isPointer ? "not null" : "not nil";
  case ObjcType::Nullability::None:
    break;
  }
  return "";
}

} // namespace bridgegen
