#include "generator/project/AbiFunction.h"

#include "generator/project/ObjcType.h"
#include "generator/project/SafeName.h"

#include <algorithm>

namespace bridgegen {

std::string abiSpelling(const Type &type, AbiLanguage language) {
  const auto pointer = [&](const Type &interface) {
    return (language == AbiLanguage::C ? interface.cName() : interface.bridgeName) + " *";
  };
  switch (type.kind) {
  case Kind::String:
    return "HSTRING";
  case Kind::Boolean:
    return "unsigned char"; // a byte that may be any number
  case Kind::Object:
    return pointer(type);
  case Kind::Delegate:
    return language == AbiLanguage::C ? "void *" : pointer(type);
  case Kind::Interface:
  case Kind::Class:
    return pointer(*crossingInterface(type));
  default:
    return valueSpelling(type);
  }
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

  void add(const Parameter &parameter) {
    const auto count = [&](unsigned pointers) {
      add(*parameter.countType, parameter.countName, pointers);
    };
    switch (parameter.passing) {
    case Passing::In:
      return add(*parameter.type, parameter.name);
    case Passing::Out:
      return add(*parameter.type, parameter.name, 1);
    case Passing::InArray:
    case Passing::FillArray:
    case Passing::BulkRead: // the count of what was filled is the result, which comes last
      count(0);
      break;
    case Passing::OutArray:
    case Passing::ReturnedArray:
      count(1);
      return add(*parameter.type, parameter.name, 2);
    case Passing::CountedFillArray:
    case Passing::ReturnedFillArray:
      count(0);
      add(*parameter.filledType, parameter.filledName, 1);
      break;
    }
    add(*parameter.type, parameter.name, 1);
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
  for (const Parameter &parameter : member.parameters)
    list.add(parameter);
  for (const Parameter &parameter : member.parameters) {
    if (parameter.passing == Passing::BulkRead)
      list.add(*parameter.filledType, parameter.filledName, 1);
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
