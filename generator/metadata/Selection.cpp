#include "generator/metadata/Selection.h"

#include <algorithm>

namespace bridgegen::metadata {

namespace {

using syntax::Form;

// Instances in instances, as nobody writes them: of a family that needs ever larger ones.
constexpr size_t kDeepest = 8;
constexpr size_t kLargest = 256; ///< names in one

size_t depthOf(const TypeName &type) {
  size_t depth = 0;
  for (const TypeName &argument : type.arguments)
    depth = std::max(depth, depthOf(argument));
  return depth + 1;
}

size_t sizeOf(const TypeName &type) {
  size_t size = 1;
  for (const TypeName &argument : type.arguments)
    size += sizeOf(argument);
  return size;
}

/// Extern, proxy, full: how much of a type there is.
int rank(Form form) { return form == Form::Extern ? 0 : form == Form::Proxy ? 1 : 2; }

const char *word(Form form) { return form == Form::Extern ? "extern" : "proxy"; }

} // namespace

Selection::Selection(const Types &types, const Wanted &wanted) : types_(types) {
  select(wanted);
  listWanted();
  while (!waiting_.empty()) {
    const Definition &next = *waiting_.front();
    waiting_.pop_front();
    complete(next);
  }
  for (const Definition &definition : types.library().definitions()) {
    const auto found = selected_.find(definition.fullName());
    if (found == selected_.end())
      continue;
    Selected &selected = found->second;
    const bool hasForm = definition.kind == Definition::Kind::Interface ||
                         definition.kind == Definition::Kind::Class;
    if (!selected.isNamed && hasForm && rank(selected.form) < 2)
      note(definition, std::string("pulled in as ") + word(selected.form));
    else if (!selected.isNamed && !hasForm)
      note(definition, "pulled in");
    ordered_.push_back(std::move(selected));
  }
}

void Selection::note(const Definition &definition, const std::string &text) {
  notes_.push_back(quoted(definition.fullName()) + ": " + text);
}

void Selection::select(const Wanted &wanted) {
  for (const std::string &name : wanted.proxies)
    select(name, Form::Proxy);
  for (const std::string &name : wanted.types)
    select(name, Form::Full);
  const bool isAll = wanted.types.empty() && wanted.nameSpaces.empty() && wanted.proxies.empty();
  std::set<std::string> left(wanted.nameSpaces.begin(), wanted.nameSpaces.end());
  for (const Definition &definition : types_.library().definitions()) {
    const std::vector<std::string> &spaces = wanted.nameSpaces;
    if (isAll || std::find(spaces.begin(), spaces.end(), definition.nameSpace) != spaces.end()) {
      left.erase(definition.nameSpace);
      select(definition, false);
    }
  }
  if (knownTypes_)
    notes_.push_back(std::to_string(knownTypes_) + " types are known already and not repeated");
  if (!left.empty())
    throw Refused("error: no type is in the namespace " + quoted(*left.begin()));
}

void Selection::select(const std::string &name, Form form) {
  if (const std::optional<TypeName> type = typeOf(name); type && !type->arguments.empty()) {
    wantedInstances_.emplace(spelled(*type), std::pair{*type, form});
    return;
  }
  const Definition *definition = types_.library().find(name);
  if (!definition)
    throw Refused("error: no type " + quoted(name) + " is in the files");
  if (form == Form::Full)
    select(*definition, true);
  else if (!types_.isKnown(name)) {
    raise(*definition, form);
    selected_[name].isNamed = true;
  }
}

void Selection::select(const Definition &definition, bool isByName) {
  const std::string name = definition.fullName();
  if (types_.isKnown(name)) {
    if (isByName)
      note(definition, "known already and not repeated");
    else
      ++knownTypes_;
    return;
  }
  const std::optional<Form> role = types_.library().roleOf(name);
  if (!role) {
    note(definition, "left out: a factory of subclasses");
    return;
  }
  if (definition.typeParameters.empty()) {
    if (const std::string problem = types_.problem(definition); !problem.empty()) {
      note(definition, "left out: " + problem);
      return;
    }
  }
  raise(definition, *role);
  selected_[name].isNamed = true;
}

void Selection::listWanted() {
  for (const auto &[name, wanted] : wantedInstances_) {
    const auto &[type, form] = wanted;
    if (const std::string problem = types_.problem(type, {}); !problem.empty())
      throw Refused("error: " + quoted(name) + ": " + problem);
    if (types_.sortOf(type.name.text) != Sort::InterfaceFamily)
      throw Refused("error: " + quoted(name) + " is no interface");
    // With the first type that is its user's own, or with its family.
    std::string home = type.name.text;
    for (const TypeName &argument : type.arguments) {
      if (types_.library().find(argument.name.text) && !types_.isKnown(argument.name.text)) {
        home = argument.name.text;
        break;
      }
    }
    need(type, Form::Proxy, {{}, home.substr(0, home.rfind('.'))});
  }
}

void Selection::raise(const Definition &definition, Form form) {
  const auto [place, isNew] = selected_.try_emplace(definition.fullName());
  Selected &selected = place->second;
  if (!isNew && rank(selected.form) >= rank(form))
    return;
  selected.definition = &definition;
  selected.form = form;
  waiting_.push_back(&definition);
}

void Selection::complete(const Definition &definition) {
  Selected &selected = selected_.at(definition.fullName());
  const Needer needer{definition.place, definition.nameSpace};
  switch (definition.kind) {
  case Definition::Kind::Enumeration:
    break;
  case Definition::Kind::Structure:
    for (const Definition::Field &field : definition.fields)
      need(field.type, Form::Proxy, needer);
    break;
  case Definition::Kind::Delegate:
    if (!definition.typeParameters.empty())
      break;
    for (const Parameter &parameter : definition.methods[0].parameters)
      need(parameter.type, Form::Proxy, needer);
    if (definition.methods[0].result)
      need(*definition.methods[0].result, Form::Proxy, needer);
    break;
  case Definition::Kind::Interface:
    completeInterface(selected);
    break;
  case Definition::Kind::Class:
    completeClass(selected);
    break;
  }
}

void Selection::completeInterface(Selected &selected) {
  const Definition &definition = *selected.definition;
  if (rank(selected.form) < 2)
    return;
  selected.members = types_.members(definition);
  for (const DeclaredMember &member : selected.members) {
    if (std::holds_alternative<syntax::Reserved>(member.member))
      note(definition, "no bridge for " + member.comment);
  }
  if (definition.typeParameters.empty())
    needMembers(selected.members, {definition.place, definition.nameSpace});
}

void Selection::completeClass(Selected &selected) {
  const Definition &definition = *selected.definition;
  const Needer needer{definition.place, definition.nameSpace};
  selected.interfaces.clear();
  for (const TypeName &interface : definition.interfaces) {
    if (std::string problem = types_.problem(interface, definition.place); !problem.empty()) {
      note(definition, "without " + quoted(spelled(interface)) + ": " + problem);
      continue;
    }
    selected.interfaces.push_back(interface);
    need(interface, selected.form, needer);
    if (selected.form == Form::Extern)
      return;
  }
  if (selected.form != Form::Full)
    return;
  for (const std::string &factory : definition.composable)
    note(definition,
         "without its factory of subclasses" + (factory.empty() ? "" : " " + quoted(factory)));
  for (const Definition::ClassSide &side : definition.classSide) {
    if (types_.isKnown(side.interface))
      continue;
    const Definition *interface = types_.library().find(side.interface);
    if (!interface)
      definition.place.refuse(quoted(side.interface) + " is neither known nor in the files");
    if (interface->kind != Definition::Kind::Interface || !interface->typeParameters.empty())
      definition.place.refuse(quoted(side.interface) + " cannot be a class's statics or factory");
    raise(*interface, side.form);
  }
}

void Selection::needMembers(const std::vector<DeclaredMember> &members, const Needer &needer) {
  for (const DeclaredMember &member : members) {
    for (const TypeName *type : typesOf(member.member))
      need(*type, Form::Proxy, needer);
  }
}

void Selection::need(const TypeName &type, Form form, const Needer &needer) {
  if (!type.arguments.empty()) {
    needInstance(type, form, needer);
    return;
  }
  const std::string &name = type.name.text;
  const Sort sort = types_.sortOf(name);
  if (sort == Sort::Unknown)
    needer.place.refuse("type " + quoted(name) + " is neither known nor in the files");
  if (sort != Sort::BuiltIn && !types_.isKnown(name))
    raise(*types_.library().find(name), form);
}

void Selection::needInstance(const TypeName &type, Form form, const Needer &needer) {
  if (depthOf(type) > kDeepest || sizeOf(type) > kLargest)
    needer.place.refuse("ever larger instances of " + quoted(type.name.text) + " are needed");
  const std::string name = spelled(type);
  const std::string &familyName = type.name.text;
  const Sort sort = types_.sortOf(familyName);
  if (sort != Sort::InterfaceFamily && sort != Sort::DelegateFamily)
    needer.place.refuse(quoted(familyName) + " takes no type arguments");
  const Family &family = types_.family(familyName);
  if (type.arguments.size() != family.typeParameters.size())
    needer.place.refuse("the wrong number of type arguments in " + quoted(name.substr(0, 200)));
  if (!types_.isKnown(familyName))
    raise(*types_.library().find(familyName), Form::Full);

  if (family.isDelegate) {
    if (delegates_.insert(name).second) {
      for (const TypeName &argument : family.arguments)
        need(substituted(argument, family.typeParameters, type.arguments), Form::Proxy, needer);
    }
  } else if (form == Form::Extern) {
    for (const TypeName &argument : type.arguments)
      need(argument, Form::Extern, needer);
  } else {
    const auto wanted = wantedInstances_.find(name);
    list(type, wanted == wantedInstances_.end() ? Form::Full : wanted->second.second, needer);
  }
}

void Selection::list(const TypeName &type, Form form, const Needer &needer) {
  const std::string name = spelled(type);
  const Type *known = types_.known().find(name);
  if ((known && asInterface(*known).hasProtocol()) || instances_.contains(name))
    return;
  instances_.emplace(name, SelectedInstance{type, form, needer.nameSpace});
  for (const TypeName &argument : type.arguments)
    need(argument, Form::Extern, needer);
  if (form != Form::Full)
    return;
  const Family &family = types_.family(type.name.text);
  for (const DeclaredMember &member : family.members) {
    for (const TypeName *named : typesOf(member.member))
      need(substituted(*named, family.typeParameters, type.arguments), Form::Proxy, needer);
  }
}

} // namespace bridgegen::metadata
