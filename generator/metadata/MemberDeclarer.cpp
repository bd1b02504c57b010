#include "generator/metadata/MemberDeclarer.h"

#include "generator/metadata/Names.h"

#include <algorithm>

namespace bridgegen::metadata {

namespace {

Name named(std::string text) { return {std::move(text), {}}; }

bool isBulkRead(const Method &method, const Parameter &parameter) {
  return parameter.isArray && parameter.isOut && !parameter.isByReference &&
         parameter.lengthIs == 0U && method.result && !method.returnsArray &&
         method.result->name.text == "UInt32" && &parameter == &method.parameters.back();
}

std::string deprecation(const Method &method) {
  return method.deprecated ? "Deprecated. " + *method.deprecated : "";
}

/// `stem`, or with underscores behind it when a parameter is called so.
std::string freeName(std::string stem, const Method &method) {
  while (std::any_of(method.parameters.begin(), method.parameters.end(),
                     [&](const Parameter &parameter) { return parameter.name == stem; }))
    stem += '_';
  return stem;
}

} // namespace

std::vector<DeclaredMember> MemberDeclarer::run() {
  const std::vector<Method> &methods = interface_.methods;
  for (size_t i = 0; i < methods.size(); ++i) {
    const bool isLast = i + 1 == methods.size();
    const bool isEvent = methods[i].role == Role::EventAdd && !isLast &&
                         methods[i + 1].role == Role::EventRemove &&
                         methods[i + 1].name == methods[i].name;
    add(methods[i], isEvent ? &methods[i + 1] : nullptr);
    if (isEvent)
      ++i;
  }
  return std::move(members_);
}

void MemberDeclarer::add(const Method &method, const Method *remove) {
  if (const std::string problem = problemOf(method); !problem.empty()) {
    reserve(method, problem);
    if (remove)
      reserve(*remove, problem);
    return;
  }
  switch (method.role) {
  case Role::Getter:
  case Role::Setter:
    addAccessor(method);
    return;
  case Role::Method:
    addMethod(method);
    return;
  case Role::EventAdd:
  case Role::EventRemove:
    break;
  }
  if (!remove) {
    reserve(method, "an event's accessor without the other behind it");
    return;
  }
  const Parameter &handler = method.parameters[0];
  syntax::Event event{handler.type, named(method.name), {}};
  if (handler.name != "handler")
    event.parameter = named(handler.name);
  members_.push_back({std::move(event), deprecation(method)});
}

void MemberDeclarer::addAccessor(const Method &method) {
  const bool isSetter = method.role == Role::Setter;
  const TypeName &type = isSetter ? method.parameters[0].type : *method.result;
  syntax::Accessor accessor{isSetter, {}, {}};
  if (isSetter && method.parameters[0].name != "value")
    accessor.parameter = named(method.parameters[0].name);
  auto *before =
      members_.empty() ? nullptr : std::get_if<syntax::Property>(&members_.back().member);
  if (before && before->name.text == method.name && before->accessors.size() == 1 &&
      before->accessors[0].isSetter != isSetter && spelled(before->type) == spelled(type)) {
    before->accessors.push_back(std::move(accessor));
    return;
  }
  members_.push_back(
      {syntax::Property{type, named(method.name), {std::move(accessor)}}, deprecation(method)});
}

void MemberDeclarer::addMethod(const Method &method) {
  syntax::Method declared;
  declared.name = named(method.name);
  if (!method.overloadedName.empty())
    declared.attributes.push_back({named("overload"), named(method.overloadedName)});
  bool hasResult = method.result.has_value();
  for (const Parameter &parameter : method.parameters) {
    syntax::Parameter &added = declared.parameters.emplace_back();
    added.type = parameter.type;
    added.name = named(parameter.name);
    if (parameter.isArray)
      added.array.emplace();
    if (!parameter.isOut)
      continue;
    added.isFill = parameter.isArray && !parameter.isByReference;
    added.isOut = !added.isFill;
    if (!isBulkRead(method, parameter))
      continue;
    hasResult = false;
    added.array->count = syntax::Count{{}, named(freeName("capacity", method))};
    added.array->filled = syntax::Filled::Return;
    added.array->filledCount = syntax::Count{{}, named(freeName("actual", method))};
  }
  if (hasResult && method.returnsArray) {
    syntax::Parameter &result = declared.parameters.emplace_back();
    result.isReturn = true;
    result.type = *method.result;
    result.array.emplace();
    result.name = named(freeName(method.resultName.empty() ? "result" : method.resultName, method));
  } else if (hasResult) {
    declared.result = *method.result;
  }
  members_.push_back({std::move(declared), deprecation(method)});
}

void MemberDeclarer::reserve(const Method &method, const std::string &problem) {
  members_.push_back({syntax::Reserved{}, method.name + ": " + problem + "."});
}

bool MemberDeclarer::isDelegate(const TypeName &type) const {
  const Sort sort = types_.sortOf(type.name.text);
  return sort == Sort::Delegate || sort == Sort::DelegateFamily;
}

std::string MemberDeclarer::crossing(const TypeName &type, const Method &method) const {
  // What depends on type parameters is looked at when they are known.
  if (!interface_.typeParameters.empty())
    return "";
  return types_.problem(type, method.place);
}

std::string MemberDeclarer::problemOf(const Method &method, const Parameter &parameter) const {
  if (parameter.isByReference && (!parameter.isOut || parameter.isConst))
    return "'" + parameter.name + "' is passed by reference";
  if (isDelegate(parameter.type) && (parameter.isArray || parameter.isOut))
    return "'" + parameter.name + "' hands delegates out or takes several";
  if (parameter.isArray && parameter.isOut && !parameter.isByReference &&
      !isBulkRead(method, parameter)) {
    const Sort sort = types_.sortOf(parameter.type.name.text);
    const std::string &name = parameter.type.name.text;
    const bool isValue = sort == Sort::Enumeration || sort == Sort::Structure ||
                         (sort == Sort::BuiltIn && name != "String" && name != "Object");
    if (!isValue)
      return "nothing tells how much of '" + parameter.name + "' was filled";
  }
  return crossing(parameter.type, method);
}

std::string MemberDeclarer::problemOf(const Method &method) const {
  if (!isIdentifier(method.name) ||
      (!method.overloadedName.empty() && !isIdentifier(method.overloadedName)))
    return "that is no name of a member";
  const size_t wanted = method.role == Role::Getter ? 0 : 1;
  const bool isSetter = method.role == Role::Setter;
  if (method.role != Role::Method && method.parameters.size() != wanted)
    method.place.refuse("an accessor with " + std::to_string(method.parameters.size()) +
                        " parameters");
  if ((method.role == Role::Getter) > method.result.has_value())
    method.place.refuse("a getter without a result");
  if (method.role == Role::EventAdd && !isDelegate(method.parameters[0].type))
    method.place.refuse("an event whose handler is no delegate");
  if (method.role == Role::EventRemove)
    return "";
  for (const Parameter &parameter : method.parameters) {
    if (std::string problem = problemOf(method, parameter); !problem.empty())
      return problem;
    if (isSetter && (parameter.isArray || parameter.isOut))
      return "a property that is an array";
  }
  if (!method.result || method.role == Role::EventAdd || isSetter)
    return "";
  if (method.role == Role::Getter && method.returnsArray)
    return "a property that is an array";
  // The getter of a delegate's property keeps its slot and has no method; nothing else gives one.
  if (isDelegate(*method.result) && (method.role != Role::Getter || method.returnsArray))
    return "it gives a delegate";
  return crossing(*method.result, method);
}

} // namespace bridgegen::metadata
