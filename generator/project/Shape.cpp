#include "generator/project/Shape.h"

#include "generator/project/ObjcType.h"
#include "generator/project/Selector.h"

namespace bridgegen {

namespace {

/// The kind of `words` from outside to inside. What it is told follows from its outermost word;
/// strings and values need nothing.
MarshalKind kind(const std::vector<const MarshalWord *> &words, const Type *type = nullptr) {
  std::string name;
  for (const MarshalWord *word : words)
    name += (name.empty() ? "" : "<") + std::string(word->name);
  name.append(words.size() - 1, '>');
  const std::optional<FactKind> fact = words[0]->fact;
  const bool isTold = fact && type && (type->isReferenceType() || type->isDelegate());
  return {std::move(name), isTold ? std::optional(Fact{*fact, type}) : std::nullopt};
}

/// `Value<int>`.
MarshalKind kindOf(const MarshalWord &word, const Type &type) {
  return {std::string(word.name) + "<" + valueSpelling(type) + ">", {}};
}

MarshalKind valueKind(const Type &type) {
  return type.isBoolean() ? kind({&marshalWord("Boolean")}) : kindOf(marshalWord("Value"), type);
}

/// Of strings and objects, one or many.
MarshalKind objectKind(const Parameter &parameter) {
  const Type &type = *parameter.type;
  const ObjectForm &form = *parameter.passing->objects;
  std::vector<const MarshalWord *> words(form.around.begin(), form.around.end());
  if (parameter.isArray())
    words.push_back(type.isString() ? &marshalWord("StringElements")
                                    : &marshalWord("ObjectElements"));
  else
    words.push_back(type.isString() ? &marshalWord("String") : &marshalWord("Object"));
  return kind(words, &type);
}

MarshalKind parameterKind(const MethodParameter &word) {
  const Parameter &parameter = *word.parameter;
  const Type &type = parameter.typeOf(word.word);
  if (type.isDelegate())
    return kind({&marshalWord("Delegate")}, &type);
  if (!type.isValue())
    return objectKind(parameter);
  if (word.pointers != 0)
    return kind({&marshalWord("Pointer")});
  return parameter.isObjectArray() ? kindOf(marshalWord("Capacity"), type) : valueKind(type);
}

MarshalKind resultKind(const Member &member) {
  if (const Parameter *parameter = member.resultParameter())
    return objectKind(*parameter);
  if (!member.result)
    return kind({&marshalWord("Void")});
  const Type &type = *member.result;
  if (type.isString())
    return kind({&marshalWord("String")});
  // A null interface is nil; a null runtime class reaches `bridgeTransfer:`, which logs it.
  if (type.isReferenceType())
    return kind({type.isRuntimeClass() ? &marshalWord("RuntimeClass") : &marshalWord("Interface")},
                &type);
  return valueKind(type);
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
