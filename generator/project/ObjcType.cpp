#include "generator/project/ObjcType.h"

#include "generator/project/SafeName.h"

#include <algorithm>
#include <cassert>

namespace bridgegen {

namespace {

using Nullability = ObjcType::Nullability;

ObjcType scalar(std::string spelling, std::string encoding, unsigned size) {
  return {std::move(spelling), encoding, encoding, encoding, size, size, Nullability::None, false};
}

ObjcType structure(const StructType &type) {
  std::string fields;
  unsigned size = 0;
  unsigned alignment = 1;
  for (const StructType::Field &field : type.fields) {
    // A string in a structure is the bare handle.
    const ObjcType fieldType = field.type->isString() ? voidPointer() : objcType(*field.type);
    fields += fieldType.encoding;
    size = (size + fieldType.alignment - 1) / fieldType.alignment * fieldType.alignment;
    size += fieldType.size;
    alignment = std::max(alignment, fieldType.alignment);
  }
  ObjcType result = scalar(type.cName(), "{" + type.cName() + "=" + fields + "}", 0);
  result.distant = "{" + type.cName() + "}";
  result.size = (size + alignment - 1) / alignment * alignment;
  result.alignment = alignment;
  return result;
}

/// A typedef of a structure without a tag.
ObjcType unnamedStructure(std::string spelling, const std::string &fields, unsigned size,
                          unsigned alignment) {
  ObjcType result = scalar(std::move(spelling), "{?=" + fields + "}", size);
  result.distant = "{?}";
  result.alignment = alignment;
  return result;
}

ObjcType object(std::string spelling, const std::string &extended) {
  return {std::move(spelling), "@", extended, "@", 4, 4, Nullability::Nullable, false};
}

ObjcType block(const DelegateType &delegate) {
  std::string spelling;
  std::string extended;
  const auto add = [&](const ObjcType &type, const std::string &name) {
    const std::string text = type.elsewhere();
    spelling += (spelling.empty() ? "" : ", ") + text + (text.back() == '*' ? "" : " ") + name;
    extended += type.extended;
  };
  for (const DelegateType::Argument &argument : delegate.arguments)
    add(objcType(*argument.type), safeName(argument.name));
  if (delegate.result)
    add(pointerTo(objcType(*delegate.result)), "result");
  if (spelling.empty())
    spelling = "void";
  return {"HRESULT (^)(" + spelling + ")",
          "@?",
          "@?<l@?" + extended + ">",
          "@?",
          4,
          4,
          Nullability::Nonnull,
          false};
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

ObjcType objcVoid() { return scalar("void", "v", 0); }

ObjcType objcArray(const std::string &className, const Type &element) {
  // Type arguments leave no trace in encodings.
  const std::string spelling = objcType(element).spelling;
  return object(className + "<" + spelling + "> *", "@\"" + className + "\"");
}

ObjcType voidPointer() {
  ObjcType type = scalar("void *", "^v", 4);
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
  ObjcType type = scalar(name + " *", "^{" + name + "=" + fields + "}", 4);
  type.nullability = Nullability::Nullable;
  type.isPointer = true;
  return type;
}

std::string valueSpelling(const Type &type) {
  switch (type.kind) {
  case Kind::Boolean:
    return "bool";
  case Kind::UInt8:
    return "unsigned char";
  case Kind::Int16:
    return "short";
  case Kind::UInt16:
  case Kind::Char16:
    return "unsigned short";
  case Kind::Int32:
  case Kind::Enum:
    return "int";
  case Kind::UInt32:
    return "unsigned int";
  case Kind::Int64:
    return "long long";
  case Kind::UInt64:
    return "unsigned long long";
  case Kind::Single:
    return "float";
  case Kind::Double:
    return "double";
  case Kind::Guid:
    return "GUID";
  case Kind::HResult:
    return "HRESULT";
  case Kind::Token:
    return "WRTEventRegistrationToken";
  default:
    assert(type.kind == Kind::Struct);
    return type.cName();
  }
}

ObjcType objcType(const Type &type) {
  const auto value = [&](const char *encoding, unsigned size) {
    return scalar(valueSpelling(type), encoding, size);
  };
  switch (type.kind) {
  case Kind::Boolean:
    return value("B", 1);
  case Kind::UInt8:
    return value("C", 1);
  case Kind::Int16:
    return value("s", 2);
  case Kind::UInt16:
  case Kind::Char16:
    return value("S", 2);
  case Kind::Int32:
  case Kind::Enum:
    return value("i", 4);
  case Kind::UInt32:
    return value("I", 4);
  case Kind::HResult:
    return value("l", 4);
  case Kind::Int64:
    return value("q", 8);
  case Kind::UInt64:
    return value("Q", 8);
  case Kind::Single:
    return value("f", 4);
  case Kind::Double:
    return value("d", 8);
  case Kind::Guid:
    return unnamedStructure("GUID", "LSS[8C]", 16, 4);
  case Kind::Token:
    return unnamedStructure("WRTEventRegistrationToken", "q", 8, 8);
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
    return block(asDelegate(type));
  }
  return objcVoid();
}

} // namespace bridgegen
