#include "generator/model/Resolver.h"

#include <algorithm>

namespace bridgegen {

Context Context::of(const Family &family, const std::vector<const Type *> &arguments) {
  Context context{family.section, {}};
  for (size_t i = 0; i < arguments.size(); ++i)
    context.typeParameters.emplace((*family.typeParameters)[i].text, arguments[i]);
  return context;
}

Type *Resolver::fail(Position at, std::string message) {
  diagnostics_.error(at, std::move(message));
  return nullptr;
}

const Type *Resolver::resolve(const syntax::TypeName &name, const Context &context) {
  const auto parameter = context.typeParameters.find(name.name.text);
  const Type *plain = parameter != context.typeParameters.end() ? parameter->second
                                                                : model_.builtIn(name.name.text);
  if (!plain)
    return lookUp(name, context);
  if (!name.arguments.empty())
    return fail(name.name.at, quoted(name.name.text) + " takes no type arguments");
  return plain;
}

namespace {

std::string listed(const std::vector<std::string> &names, const char *separator) {
  std::string text;
  for (const std::string &name : names)
    text += (text.empty() ? "" : separator) + quoted(name);
  return text;
}

} // namespace

/// What to write for a type of another namespace.
std::string Resolver::hint(const std::string &name) const {
  const std::vector<std::string> names = scope_.namesakes(name);
  return names.empty()
             ? ""
             : "; write " + listed(names, " or ") + ", or name its namespace in a 'using' line";
}

Type *Resolver::lookUp(const syntax::TypeName &name, const Context &context) {
  const std::vector<Entry> entries = scope_.find(*context.section, name.name.text);
  if (entries.empty())
    return fail(name.name.at, "unknown type " + quoted(name.name.text) + hint(name.name.text));
  if (entries.size() > 1) {
    std::vector<std::string> names;
    for (const Entry &entry : entries)
      names.push_back(entry.type ? entry.type->name : entry.family->name);
    return fail(name.name.at, quoted(name.name.text) + " may be " + listed(names, " and ") +
                                  "; write it in full");
  }

  const Family *family = entries[0].family;
  const size_t wanted = family ? family->typeParameters->size() : 0;
  if (name.arguments.size() != wanted)
    return fail(name.name.at, quoted(name.name.text) + " takes " + std::to_string(wanted) +
                                  " type arguments, found " +
                                  std::to_string(name.arguments.size()));
  if (!family)
    return entries[0].type;

  std::vector<const Type *> arguments;
  for (const syntax::TypeName &argument : name.arguments) {
    const Type *type = resolve(argument, context);
    if (!type)
      return nullptr;
    arguments.push_back(type);
  }
  return instantiate(*family, std::move(arguments), name.name.at);
}

InterfaceType *Resolver::resolveInstance(const syntax::TypeName &name, const Context &context) {
  if (name.arguments.empty()) {
    fail(name.name.at,
         "expected an instance of a generic interface, found " + quoted(name.name.text));
    return nullptr;
  }
  Type *type = lookUp(name, context);
  if (type && type->kind != Kind::Interface)
    type = fail(name.name.at, "expected an instance of a generic interface, found the delegate " +
                                  quoted(name.name.text));
  return static_cast<InterfaceType *>(type);
}

Type *Resolver::open(const Family &family) {
  std::vector<const Type *> parameters;
  for (const Name &parameter : *family.typeParameters)
    parameters.push_back(&model_.typeParameter(parameter.text));
  return instantiate(family, std::move(parameters), family.at);
}

std::optional<std::string> Resolver::spelling(const Family &family, const Type &argument,
                                              Position at) {
  switch (argument.kind) {
  case Kind::Scalar:
    if (argument.isBoolean())
      return "WRT" + family.booleanSpelling;
    if (argument.scalar->isTypeArgument || !needsSpellings_)
      return "WRT" + argument.bridgeName;
    break;
  case Kind::String:
  case Kind::Enum:
  case Kind::Struct:
    return "WRT" + argument.bridgeName;
  case Kind::Object:
  case Kind::Interface:
  case Kind::Class:
    return "WRT" + argument.bridgeName + "_P";
  case Kind::Delegate:
    break;
  }
  diagnostics_.error(at, quoted(argument.name) + " cannot be a type argument: it has no spelling");
  return std::nullopt;
}

Type *Resolver::instantiate(const Family &family, std::vector<const Type *> arguments,
                            Position at) {
  // Making an instance of a delegate looks its arguments up, so one inside another might have no
  // end.
  if (!family.interface && insideDelegate_)
    return fail(at, kDelegateInDelegate);
  std::string name = family.name + "<";
  for (const Type *argument : arguments)
    name += (name.back() == '<' ? "" : ", ") + argument->name;
  name += ">";
  if (Type *found = model_.find(name)) {
    found->isKnown = found->isKnown || isKnown_;
    return found;
  }

  std::string bridgeName = family.bridgeName + "__" + std::to_string(arguments.size());
  for (const Type *argument : arguments) {
    const std::optional<std::string> spelled = spelling(family, *argument, at);
    if (!spelled)
      return nullptr;
    bridgeName += "_" + *spelled;
  }
  const auto add = [&](auto type) -> auto & {
    type->isInstance = true;
    type->isKnown = isKnown_;
    type->isOpen = std::ranges::any_of(arguments, &Type::isOpen);
    type->iid = family.iid;
    type->unit = family.unit;
    type->at = at;
    type->instance = Instance{family.name, family.iid, arguments};
    families_[type.get()] = &family;
    return model_.add(std::move(type));
  };
  if (family.interface)
    return &add(std::make_unique<InterfaceType>(name, bridgeName));
  DelegateType &delegate = add(std::make_unique<DelegateType>(name, bridgeName));
  complete(delegate, *family.delegate, Context::of(family, arguments));
  return &delegate;
}

void Resolver::complete(DelegateType &delegate, const syntax::Delegate &syntax,
                        const Context &context) {
  insideDelegate_ = true;
  if (syntax.result)
    delegate.result = resolve(*syntax.result, context);
  for (const syntax::Field &argument : syntax.arguments) {
    if (const Type *type = resolve(argument.type, context))
      delegate.arguments.push_back({type, argument.name.text, argument.type.name.at});
  }
  insideDelegate_ = false;
}

} // namespace bridgegen
