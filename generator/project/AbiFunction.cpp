#include "generator/project/AbiFunction.h"

#include "generator/project/ComponentType.h"
#include "generator/project/ObjcType.h"
#include "generator/project/SafeName.h"

#include <algorithm>

namespace bridgegen {

std::string abiSpelling(const Type &type, AbiLanguage language) {
  const auto pointer = [&](const Type &interface) {
    switch (language) {
    case AbiLanguage::C:
      return interface.cName() + " *";
    case AbiLanguage::Cxx:
      return interface.scopeName() + " *";
    case AbiLanguage::Component:
      return componentInterface(interface) + " *";
    }
    return std::string();
  };
  if (type.isTypeParameter())
    return "Abi<" + componentType(type) + ">";
  switch (type.kind) {
  case Kind::String:
    return "HSTRING";
  case Kind::Object:
    return pointer(type);
  case Kind::Delegate:
    return language == AbiLanguage::C ? "void *" : pointer(type);
  case Kind::Interface:
  case Kind::Class:
    return pointer(*crossingInterface(type));
  case Kind::Scalar:
  case Kind::Enum:
  case Kind::Struct:
    break;
  }
  return type.isBoolean() ? "unsigned char" : valueSpelling(type); // a byte that may be any number
}

namespace {

class ParameterList {
public:
  explicit ParameterList(AbiLanguage language) : language_(language) {}

  void add(const Type &type, const std::string &name, unsigned pointers = 0) {
    std::string text = abiSpelling(type, language_);
    if (text.back() != '*')
      text += ' ';
    parameters.push_back({text + std::string(pointers, '*'), safeName(name)});
  }

  bool has(const std::string &name) const {
    return std::any_of(parameters.begin(), parameters.end(),
                       [&](const AbiParameter &parameter) { return parameter.name == name; });
  }

  std::vector<AbiParameter> parameters;

private:
  AbiLanguage language_;
};

} // namespace

std::vector<AbiParameter> abiParameters(const Member &member, AbiLanguage language) {
  ParameterList list(language);
  for (const Parameter &parameter : member.parameters) {
    for (const auto &[word, pointers] : parameter.passing->words)
      list.add(parameter.typeOf(word), parameter.nameOf(word), pointers);
  }
  if (member.result)
    list.add(*member.result, list.has("result") ? "returned" : "result", 1);
  return std::move(list.parameters);
}

std::vector<AbiParameter> abiParameters(const DelegateType &delegate, AbiLanguage language) {
  ParameterList list(language);
  for (const DelegateType::Argument &argument : delegate.arguments)
    list.add(*argument.type, argument.name);
  if (delegate.result)
    list.add(*delegate.result, "result", 1);
  return std::move(list.parameters);
}

} // namespace bridgegen
