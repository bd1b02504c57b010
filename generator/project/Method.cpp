#include "generator/project/Method.h"

#include "generator/project/SafeName.h"

#include <algorithm>

namespace bridgegen {

namespace {

/// The caller's place for something that WinRT hands out.
ObjcType place(ObjcType type) {
  type.nullability = ObjcType::Nullability::Nonnull;
  return type;
}

ObjcType wordType(const MethodParameter &word) {
  const Parameter &parameter = *word.parameter;
  if (word.isObjectArray()) {
    const ObjcType array = objcArray(parameter.passing->objects->arrayClass, *parameter.type);
    return parameter.isHandedOut() ? place(array) : array;
  }
  ObjcType type = objcType(parameter.typeOf(word.word));
  for (unsigned i = 0; i < word.pointers; ++i)
    type = pointerTo(type);
  // The elements themselves may be null when there are none.
  const bool isElements = parameter.isArray() && word.word == Word::Value && word.pointers == 1;
  return word.pointers == 0 || isElements ? type : place(type);
}

ObjcType resultType(const Member &member) {
  if (const Parameter *parameter = member.resultParameter())
    return objcArray(parameter->passing->objects->arrayClass, *parameter->type);
  return member.result ? objcType(*member.result) : objcVoid();
}

std::string encode(const Method &method, std::string ObjcType::*form) {
  std::string arguments = "@0:4";
  unsigned offset = 8; // self and the selector
  const auto add = [&](const std::string &text, unsigned size) {
    arguments += text + std::to_string(offset);
    offset += size;
  };
  // Numbers smaller than an `int` are passed as one; structures keep their size.
  for (const Method::Argument &argument : method.arguments)
    add(argument.type.*form,
        argument.type.encoding[0] == '{' ? argument.type.size : std::max(argument.type.size, 4U));
  if (method.hasError)
    add("^@", 4);
  return method.result.*form + std::to_string(offset) + arguments;
}

} // namespace

std::string Method::encoding() const { return encode(*this, &ObjcType::encoding); }

std::string Method::extendedEncoding() const { return encode(*this, &ObjcType::extended); }

Method methodOf(const InterfaceType &interface, const Member &member) {
  Method method;
  method.isClassMethod = interface.isClassSide();
  method.selector = selector(member);
  method.result = resultType(member);
  size_t at = 0;
  for (const MethodParameter &word : methodParameters(member)) {
    const size_t colon = method.selector.find(':', at);
    method.arguments.push_back(
        {method.selector.substr(at, colon - at), safeName(word.name()), wordType(word)});
    at = colon + 1;
  }
  return method;
}

Method accessorOf(const InterfaceType &interface) {
  Method method;
  method.isClassMethod = interface.isClassSide();
  method.selector = interface.accessorSelector();
  method.result = interfacePointer(interface);
  return method;
}

Method activation() {
  Method method;
  method.isClassMethod = true;
  method.selector = "activateInstance";
  method.result = voidPointer();
  method.hasError = false;
  return method;
}

} // namespace bridgegen
