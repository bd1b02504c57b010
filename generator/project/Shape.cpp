#include "generator/project/Shape.h"

#include "generator/project/ObjcType.h"
#include "generator/project/Selector.h"

namespace bridgegen {

namespace {

using Word = MethodParameter::Word;
using What = Fact::What;

std::string elements(const Type &type) {
  return type.isString() ? "StringElements" : "ObjectElements";
}

/// The fact of a kind whose objects come from WinRT: which class bridges them.
std::optional<Fact> bridging(const Type &type) {
  return type.isReferenceType() ? std::optional(Fact{What::Class, &type}) : std::nullopt;
}

/// The fact of a kind whose objects go to WinRT: how they are asked for their interface.
std::optional<Fact> asking(const Type &type) {
  return type.isReferenceType() ? std::optional(Fact{What::Accessor, &type}) : std::nullopt;
}

std::string value(const Type &type) { return "Value<" + valueSpelling(type) + ">"; }

MarshalKind inKind(const Type &type) {
  if (type.isString())
    return {"String", {}};
  if (type.isDelegate())
    return {"Delegate", Fact{What::Maker, &type}};
  if (type.isReferenceType())
    return {"Object", asking(type)};
  return {type.isBoolean() ? "Boolean" : value(type), {}};
}

MarshalKind outKind(const Type &type) {
  if (type.isValue())
    return {"Pointer", {}};
  return {type.isString() ? "Out<String>" : "Out<Object>", bridging(type)};
}

MarshalKind objectArrayKind(const Parameter &parameter) {
  const Type &type = *parameter.type;
  const std::string array = "Array<" + elements(type) + ">";
  switch (parameter.passing) {
  case Passing::InArray:
    return {array, asking(type)};
  case Passing::CountedFillArray:
    return {"Fill<" + array + ">", bridging(type)};
  default:
    return {"Out<" + array + ">", bridging(type)};
  }
}

MarshalKind countKind(const Parameter &parameter) {
  if (parameter.passing == Passing::OutArray || parameter.passing == Passing::ReturnedArray)
    return {"Pointer", {}};
  if (parameter.isObjectArray())
    return {"Capacity<" + valueSpelling(*parameter.countType) + ">", {}};
  return {value(*parameter.countType), {}};
}

MarshalKind parameterKind(const MethodParameter &word) {
  const Parameter &parameter = *word.parameter;
  if (word.word == Word::Count)
    return countKind(parameter);
  if (word.word == Word::FilledCount)
    return {"Pointer", {}};
  if (parameter.isObjectArray())
    return objectArrayKind(parameter);
  if (parameter.isArray())
    return {"Pointer", {}};
  return parameter.passing == Passing::In ? inKind(*parameter.type) : outKind(*parameter.type);
}

MarshalKind resultKind(const Member &member) {
  if (const Parameter *parameter = member.resultParameter()) {
    const char *form = parameter->passing == Passing::BulkRead        ? "BulkRead<"
                       : parameter->passing == Passing::ReturnedArray ? "ReturnedArray<"
                                                                      : "ReturnedFill<";
    return {form + elements(*parameter->type) + ">", bridging(*parameter->type)};
  }
  if (!member.result)
    return {"Void", {}};
  const Type &type = *member.result;
  if (type.isString())
    return {"String", {}};
  // A null interface is nil; a null runtime class reaches `bridgeTransfer:`, which logs it.
  if (type.isReferenceType())
    return {type.isRuntimeClass() ? "RuntimeClass" : "Interface", bridging(type)};
  return {type.isBoolean() ? "Boolean" : value(type), {}};
}

} // namespace

std::string Shape::signature() const {
  std::string text = result.name + "(";
  for (const MarshalKind &kind : parameters)
    text += (&kind == &parameters[0] ? "" : ", ") + kind.name;
  return text + ")";
}

std::vector<Fact> Shape::facts() const {
  std::vector<Fact> facts;
  if (result.fact)
    facts.push_back(*result.fact);
  for (const MarshalKind &kind : parameters) {
    if (kind.fact)
      facts.push_back(*kind.fact);
  }
  return facts;
}

Shape shapeOf(const Member &member) {
  Shape shape{resultKind(member), {}};
  for (const MethodParameter &word : methodParameters(member))
    shape.parameters.push_back(parameterKind(word));
  return shape;
}

} // namespace bridgegen
