#include "generator/model/MemberBuilder.h"

#include <set>

namespace bridgegen {

namespace {

/// Slots 0 to 5 belong to `IUnknown` and `IInspectable`.
constexpr unsigned kFirstSlot = 6;

} // namespace

std::vector<Member> MemberBuilder::build(const std::vector<syntax::Member> &members) {
  for (const syntax::Member &member : members)
    std::visit([this](const auto &declared) { add(declared); }, member);

  std::set<std::string> names;
  for (const Member &member : members_) {
    if (!names.insert(member.functionName()).second)
      diagnostics_.error(member.at, "member " + quoted(member.name) + " occurs twice");
  }
  return std::move(members_);
}

Member &MemberBuilder::next(MemberKind kind, const Name &name) {
  Member &member = members_.emplace_back();
  member.kind = kind;
  member.name = name.text;
  member.at = name.at;
  member.resultAt = name.at;
  member.slot = kFirstSlot + static_cast<unsigned>(members_.size()) - 1;
  return member;
}

const Type &MemberBuilder::typeOf(const syntax::TypeName &name) {
  const Type *type = resolver_.resolve(name, context_);
  // An unknown type is reported; any other lets the reading go on.
  return type ? *type : model_.scalar(kInt32);
}

Parameter MemberBuilder::plainParameter(const syntax::TypeName &type, std::string name) {
  Parameter parameter;
  parameter.name = std::move(name);
  parameter.type = &typeOf(type);
  parameter.at = type.name.at;
  return parameter;
}

void MemberBuilder::add(const syntax::Property &property) {
  for (const syntax::Accessor &accessor : property.accessors) {
    if (accessor.isSetter) {
      const std::string name = accessor.parameter ? accessor.parameter->text : "value";
      Member &setter = next(MemberKind::Setter, property.name);
      setter.parameters.push_back(plainParameter(property.type, name));
      setter.at = property.accessors.size() == 1 ? property.name.at : accessor.at;
    } else {
      Member &getter = next(MemberKind::Getter, property.name);
      getter.result = &typeOf(property.type);
      getter.resultAt = property.type.name.at;
      getter.at = property.accessors.size() == 1 ? property.name.at : accessor.at;
    }
  }
}

void MemberBuilder::add(const syntax::Event &event) {
  const std::string name = event.parameter ? event.parameter->text : "handler";
  Member &add = next(MemberKind::EventAdd, event.name);
  add.parameters.push_back(plainParameter(event.type, name));
  add.result = &model_.scalar(kToken);
  if (const Type *handler = resolver_.resolve(event.type, context_);
      handler && !handler->isDelegate())
    diagnostics_.error(event.type.name.at, "expected a delegate as the handler's type, found " +
                                               quoted(event.type.name.text));

  Member &remove = next(MemberKind::EventRemove, event.name);
  Parameter &token = remove.parameters.emplace_back();
  token.name = "token";
  token.type = &model_.scalar(kToken);
  token.at = event.name.at;
}

void MemberBuilder::add(const syntax::Reserved &reserved) {
  next(MemberKind::Reserved, {"reserved", reserved.at});
}

void MemberBuilder::add(const syntax::Method &method) {
  Member &member = next(MemberKind::Method, method.name);
  for (const syntax::Attribute &attribute : method.attributes) {
    if (attribute.name.text == "overload" && attribute.value)
      member.overloadedName = attribute.value->text;
    else
      diagnostics_.error(attribute.name.at,
                         "expected 'overload(\"...\")', found " + quoted(attribute.name.text));
  }
  if (method.result) {
    member.result = &typeOf(*method.result);
    member.resultAt = method.result->name.at;
  }
  for (const syntax::Parameter &declared : method.parameters)
    member.parameters.push_back(parameter(declared));
  checkParameters(method);
}

const Type &MemberBuilder::countType(const syntax::Count &count) {
  if (!count.type)
    return model_.scalar(kUInt32);
  const Type &type = typeOf(*count.type);
  if (type.scalar != &kInt32 && type.scalar != &kUInt32)
    diagnostics_.error(count.type->name.at, "expected 'UInt32' or 'Int32' as the type of a count, "
                                            "found " +
                                                quoted(count.type->name.text));
  return type;
}

Parameter MemberBuilder::parameter(const syntax::Parameter &declared) {
  Parameter parameter = plainParameter(declared.type, declared.name.text);
  if (const Passing *passing = passingOf(declared))
    parameter.passing = passing;
  else if (!declared.isFill)
    diagnostics_.error(declared.array->filledCount->name.at,
                       "only a 'fill' array has a second count");
  else
    diagnostics_.error(declared.name.at, "expected an 'out' count for the elements of a returned "
                                         "'fill' array");
  if (!declared.array)
    return parameter;
  const syntax::Array &array = *declared.array;
  parameter.countName = array.count ? array.count->name.text : declared.name.text + "Size";
  parameter.countType = array.count ? &countType(*array.count) : &model_.scalar(kUInt32);
  if (array.filledCount) {
    parameter.filledName = array.filledCount->name.text;
    parameter.filledType = &countType(*array.filledCount);
  }
  if (!parameter.passing->objects && !parameter.type->isValue())
    diagnostics_.error(declared.type.name.at, "a 'fill' array of " + quoted(parameter.type->name) +
                                                  " needs a count of what was filled in");
  return parameter;
}

void MemberBuilder::checkParameters(const syntax::Method &method) {
  std::set<std::string> names;
  const auto check = [&](const Name &name) {
    if (!names.insert(name.text).second)
      diagnostics_.error(name.at, "parameter " + quoted(name.text) + " occurs twice");
  };
  for (const syntax::Parameter &parameter : method.parameters) {
    if (parameter.array && parameter.array->count)
      check(parameter.array->count->name);
    if (parameter.array && parameter.array->filledCount)
      check(parameter.array->filledCount->name);
    check(parameter.name);
    const Passing *passing = passingOf(parameter);
    if (!passing || !passing->takesFunctionResult())
      continue;
    if (&parameter != &method.parameters.back())
      diagnostics_.error(parameter.name.at, "a parameter with 'return' must be the last one");
    if (method.result)
      diagnostics_.error(method.result->name.at,
                         "expected 'void', since a parameter has 'return', found " +
                             quoted(method.result->name.text));
  }
}

} // namespace bridgegen
