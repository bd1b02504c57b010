#include "generator/project/ObjcType.h"

#include "generator/project/SafeName.h"

#include <algorithm>
#include <cassert>

namespace bridgegen {

namespace {

using Nullability = ObjcType::Nullability;

/// As it stands behind two pointers: a structure has lost its fields.
std::string distant(const std::string &encoding) {
  return encoding[0] == '{' ? encoding.substr(0, encoding.find('=')) + "}" : encoding;
}

ObjcType scalar(std::string spelling, const std::string &encoding, unsigned size,
                unsigned alignment) {
  return {std::move(spelling), encoding,          encoding, distant(encoding), size,
          alignment,           Nullability::None, false};
}

ObjcType structure(const StructType &type) {
  std::string fields;
  unsigned size = 0;
  unsigned alignment = 1;
  const auto padding = [&](unsigned to) { return (to - size % to) % to; };
  for (const StructType::Field &field : type.fields) {
    // A string in a structure is the bare handle.
    const ObjcType fieldType = field.type->isString() ? voidPointer() : objcType(*field.type);
    fields += fieldType.encoding;
    size += padding(fieldType.alignment) + fieldType.size;
    alignment = std::max(alignment, fieldType.alignment);
  }
  size += padding(alignment);
  return scalar(type.cName(), "{" + type.cName() + "=" + fields + "}", size, alignment);
}

ObjcType object(std::string spelling, const std::string &extended) {
  return {std::move(spelling), "@", extended, "@", 4, 4, Nullability::Nullable, false};
}

/// The parameters of a delegate's block, each with its name.
std::vector<std::pair<std::string, ObjcType>> parametersOf(const DelegateType &delegate) {
  std::vector<std::pair<std::string, ObjcType>> parameters;
  for (const DelegateType::Argument &argument : delegate.arguments)
    parameters.emplace_back(safeName(argument.name), objcType(*argument.type));
  if (delegate.result)
    parameters.emplace_back("result", pointerTo(objcType(*delegate.result)));
  return parameters;
}

ObjcType block(const DelegateType &delegate) {
  std::string extended;
  for (const auto &[name, type] : parametersOf(delegate))
    extended += type.extended;
  return {delegate.cName(),     "@?", "@?<l@?" + extended + ">", "@?", 4, 4,
          Nullability::Nonnull, false};
}

} // namespace

std::string ObjcType::inMethod() const {
  if (nullability == Nullability::Nullable)
    return "nullable " + spelling;
  // `assume_nonnull` speaks of simple pointers alone.
  const bool isPointerToPointer = spelling.find("_Nullable *") != spelling.npos;
  return isPointer && isPointerToPointer ? spelling + "_Nonnull" : spelling;
}

std::string ObjcType::elsewhere() const {
  if (nullability != Nullability::Nullable)
    return spelling;
  return spelling + (spelling.back() == '*' ? "_Nullable" : " _Nullable");
}

ObjcType objcVoid() { return scalar("void", "v", 0, 0); }

ObjcType objcArray(const std::string &className, const Type &element) {
  // Type arguments leave no trace in encodings.
  const std::string spelling = objcType(element).spelling;
  return object(className + "<" + spelling + "> *", "@\"" + className + "\"");
}

ObjcType voidPointer() {
  ObjcType type = scalar("void *", "^v", 4, 4);
  type.nullability = Nullability::Nullable;
  type.isPointer = true;
  return type;
}

ObjcType pointerTo(const ObjcType &type) {
  ObjcType pointer;
  const std::string pointee = type.elsewhere();
  pointer.spelling = pointee + (pointee.back() == '*' ? "*" : " *");
  const bool isBytes = type.encoding == "C"; // unsigned characters make a C string
  pointer.encoding = isBytes ? "*" : "^" + (type.isPointer ? type.distant : type.encoding);
  pointer.extended = pointer.encoding;
  pointer.distant = isBytes ? "*" : "^" + type.distant;
  pointer.nullability = Nullability::Nullable;
  pointer.isPointer = true;
  return pointer;
}

ObjcType interfacePointer(const InterfaceType &interface) {
  const std::string name = interface.cName();
  const std::string fields = interface.hasMembers() ? "^{" + name + "Vtbl}" : "";
  ObjcType type = scalar(name + " *", "^{" + name + "=" + fields + "}", 4, 4);
  type.nullability = Nullability::Nullable;
  type.isPointer = true;
  return type;
}

std::string blockParameters(const DelegateType &delegate) {
  std::string text;
  for (const auto &[name, type] : parametersOf(delegate)) {
    const std::string spelling = type.elsewhere();
    text += (text.empty() ? "" : ", ") + spelling + (spelling.back() == '*' ? "" : " ") + name;
  }
  return text.empty() ? "void" : text;
}

std::string valueSpelling(const Type &type) {
  if (type.kind == Kind::Enum)
    return kInt32.spelling;
  assert(type.isValue());
  return type.scalar ? type.scalar->spelling : type.cName();
}

ObjcType objcType(const Type &type) {
  const auto value = [](const Scalar &row, const std::string &spelling) {
    return scalar(spelling, row.encoding, row.size, row.alignment);
  };
  switch (type.kind) {
  case Kind::Scalar:
    return value(*type.scalar, type.scalar->spelling);
  case Kind::Enum:
    return value(kInt32, type.cName());
  case Kind::Struct:
    return structure(asStruct(type));
  case Kind::String:
    return object("NSString *", "@\"NSString\"");
  case Kind::Class:
    return object(type.bridgeClass() + " *", "@\"" + type.bridgeClass() + "\"");
  case Kind::Object:
  case Kind::Interface:
    return object("id<" + type.bridgeClass() + ">", "@\"<" + type.bridgeClass() + ">\"");
  case Kind::Delegate:
    break;
  }
  return block(asDelegate(type));
}

} // namespace bridgegen
