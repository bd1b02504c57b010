#include "generator/project/ComponentType.h"

namespace bridgegen {

std::string componentInterface(const Type &type) {
  if (!type.isInstance)
    return "abi::" + type.scopeName();
  std::string text = type.simpleName();
  const char *separator = "<";
  for (const Type *argument : asInstance(type).arguments) {
    text += separator + componentType(*argument);
    separator = ", ";
  }
  return text + ">";
}

std::string componentType(const Type &type) {
  switch (type.kind) {
  case Kind::Scalar:
  case Kind::String:
    return type.name;
  case Kind::Object:
    return type.isTypeParameter() ? type.bridgeName : "Inspectable";
  case Kind::Enum:
  case Kind::Struct:
  case Kind::Class:
    return "types::" + type.scopeName();
  case Kind::Interface:
  case Kind::Delegate:
    break;
  }
  return "Ref<" + componentInterface(type) + ">";
}

bool hasComponentType(const Type &type) {
  return type.kind != Kind::Interface && type.kind != Kind::Delegate && !type.isTypeParameter();
}

} // namespace bridgegen
