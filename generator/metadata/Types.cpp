#include "generator/metadata/Types.h"

#include "generator/metadata/MemberDeclarer.h"

namespace bridgegen::metadata {

namespace {

Sort sortOf(const Type &type) {
  switch (type.kind) {
  case Kind::Enum:
    return Sort::Enumeration;
  case Kind::Struct:
    return Sort::Structure;
  case Kind::Delegate:
    return Sort::Delegate;
  case Kind::Interface:
    return Sort::Interface;
  case Kind::Class:
    return Sort::Class;
  case Kind::Scalar:
  case Kind::String:
  case Kind::Object:
    break;
  }
  return Sort::BuiltIn;
}

Sort sortOf(const Definition &definition) {
  const bool isFamily = !definition.typeParameters.empty();
  switch (definition.kind) {
  case Definition::Kind::Enumeration:
    return Sort::Enumeration;
  case Definition::Kind::Structure:
    return Sort::Structure;
  case Definition::Kind::Delegate:
    return isFamily ? Sort::DelegateFamily : Sort::Delegate;
  case Definition::Kind::Interface:
    return isFamily ? Sort::InterfaceFamily : Sort::Interface;
  case Definition::Kind::Class:
    break;
  }
  return Sort::Class;
}

} // namespace

bool Types::isKnown(const std::string &fullName) const {
  return known_.find(fullName) || known_.family(fullName);
}

Sort Types::sortOf(const std::string &fullName) const {
  if (known_.model().builtIn(fullName))
    return Sort::BuiltIn;
  if (const Type *type = known_.find(fullName))
    return metadata::sortOf(*type);
  if (const Family *family = known_.family(fullName))
    return family->isDelegate ? Sort::DelegateFamily : Sort::InterfaceFamily;
  const Definition *definition = library_.find(fullName);
  return definition ? metadata::sortOf(*definition) : Sort::Unknown;
}

const Family &Types::family(const std::string &fullName) const {
  if (const Family *family = known_.family(fullName))
    return *family;
  const auto [place, isNew] = families_.try_emplace(fullName);
  Family &family = place->second;
  if (!isNew)
    return family;
  const Definition &definition = *library_.find(fullName);
  family.iid = *definition.iid;
  family.typeParameters = definition.typeParameters;
  family.isDelegate = definition.kind == Definition::Kind::Delegate;
  if (family.isDelegate) {
    for (const Parameter &parameter : definition.methods[0].parameters)
      family.arguments.push_back(parameter.type);
    if (definition.methods[0].result)
      family.arguments.push_back(*definition.methods[0].result);
  } else {
    family.members = members(definition);
  }
  return family;
}

std::string Types::problem(const TypeName &type, const Place &place) const {
  const std::string &name = type.name.text;
  const Sort sort = sortOf(name);
  if (sort == Sort::Unknown)
    place.refuse("type " + quoted(name) + " is neither known nor in the files");
  const bool isFamily = sort == Sort::InterfaceFamily || sort == Sort::DelegateFamily;
  if (const size_t wanted = isFamily ? family(name).typeParameters.size() : 0;
      type.arguments.size() != wanted)
    place.refuse(quoted(name) + " takes " + std::to_string(wanted) + " type arguments, found " +
                 std::to_string(type.arguments.size()));
  for (const TypeName &argument : type.arguments) {
    if (std::string problem = argumentProblem(argument, place); !problem.empty())
      return problem;
  }
  if (const Definition *definition = isKnown(name) ? nullptr : library_.find(name)) {
    if (std::string problem = this->problem(*definition); !problem.empty())
      return quoted(name) + ": " + problem;
  }
  return sort == Sort::Class || sort == Sort::Interface ? classProblem(name) : "";
}

std::string Types::argumentProblem(const TypeName &argument, const Place &place) const {
  static const std::set<std::string> kWithoutSpelling{
      "UInt8", "Int16", "UInt16", "Int64", "UInt64", "Char16", "HResult", "EventRegistrationToken"};
  const Sort sort = sortOf(argument.name.text);
  if (kWithoutSpelling.contains(argument.name.text) || sort == Sort::Delegate ||
      sort == Sort::DelegateFamily)
    return quoted(argument.name.text) + " cannot be a type argument";
  return problem(argument, place);
}

std::string Types::classProblem(const std::string &fullName) const {
  if (const Type *type = known_.find(fullName)) {
    const bool isExtern =
        type->isRuntimeClass() ? !asClass(*type).isBridged() : !asInterface(*type).isBridged();
    return isExtern ? quoted(fullName) + " has no bridge of its own" : "";
  }
  const Definition &definition = *library_.find(fullName);
  if (definition.kind == Definition::Kind::Class && definition.interfaces.empty())
    return quoted(fullName) + " has no default interface";
  if (library_.roleOf(fullName) != syntax::Form::Full)
    return quoted(fullName) + " belongs to a class";
  return "";
}

std::string Types::problem(const Definition &definition) const {
  const auto [known, isNew] = problems_.try_emplace(definition.fullName());
  if (!isNew)
    return known->second;
  std::string problem;
  if (definition.kind == Definition::Kind::Delegate)
    problem = delegateProblem(definition);
  for (const Definition::Field &field : definition.fields) {
    const Sort sort = sortOf(field.type.name.text);
    if (sort == Sort::Unknown)
      this->problem(field.type, definition.place);
    if (sort == Sort::Structure)
      problem = this->problem(field.type, definition.place);
    else if (field.type.name.text == "Object" ||
             (sort != Sort::BuiltIn && sort != Sort::Enumeration))
      problem = "its field '" + field.name + "' is a reference";
  }
  return problems_[definition.fullName()] = problem;
}

std::string Types::delegateProblem(const Definition &delegate) const {
  const Method &invoke = delegate.methods[0];
  const auto crossing = [&](const TypeName &type) {
    for (const std::string &parameter : delegate.typeParameters) {
      if (parameter == type.name.text)
        return std::string();
    }
    const Sort sort = sortOf(type.name.text);
    if (sort == Sort::Delegate || sort == Sort::DelegateFamily)
      return std::string("it takes or gives a delegate");
    // What is generic is looked at when it is instantiated.
    return delegate.typeParameters.empty() ? problem(type, delegate.place) : std::string();
  };
  for (const Parameter &parameter : invoke.parameters) {
    if (parameter.isArray || parameter.isByReference || parameter.isOut)
      return "it takes an array or gives something through '" + parameter.name + "'";
    if (std::string problem = crossing(parameter.type); !problem.empty())
      return problem;
  }
  if (!invoke.result)
    return "";
  const Sort sort = sortOf(invoke.result->name.text);
  const bool isObject = sort == Sort::Interface || sort == Sort::Class ||
                        sort == Sort::InterfaceFamily || invoke.result->name.text == "Object";
  if (invoke.returnsArray || !invoke.parameters.empty() ||
      (!isObject && invoke.result->name.text != "String"))
    return "it returns something else than a string or an object, or takes something as well";
  return crossing(*invoke.result);
}

std::vector<DeclaredMember> Types::members(const Definition &interface) const {
  return MemberDeclarer(*this, interface).run();
}

} // namespace bridgegen::metadata
