#include "generator/metadata/Known.h"

#include "generator/model/Builder.h"
#include "generator/model/Scope.h"
#include "generator/read/Parser.h"

#include <algorithm>

namespace bridgegen::metadata {

/// Writes the names in families out in full; they are looked up in the model only for instances.
struct Known::Resolver {
  const Model &model;
  std::set<std::string> fullNames;

  std::string meaningOf(const std::string &name, const syntax::Section &section) const {
    std::string own = fullName(section.nameSpace, name);
    if (!fullNames.contains(own)) {
      for (const Name &used : section.usings) {
        if (std::string full = fullName(used.text, name); fullNames.contains(full))
          return full;
      }
    }
    return own; // which may be a type that only the metadata has
  }

  void resolve(syntax::TypeName &type, const syntax::Section &section,
               const std::vector<std::string> &typeParameters) const {
    std::string &name = type.name.text;
    if (!model.builtIn(name) && name.find('.') == name.npos &&
        std::find(typeParameters.begin(), typeParameters.end(), name) == typeParameters.end())
      name = meaningOf(name, section);
    for (syntax::TypeName &argument : type.arguments)
      resolve(argument, section, typeParameters);
  }
};

Known::Known() : model_(std::make_unique<Model>()) {}

Known::Known(const std::deque<Source> &sources, Diagnostics &diagnostics) : Known() {
  for (const Source &source : sources)
    units_.push_back(parse(source, diagnostics));
  if (diagnostics.hasErrors())
    return;
  model_ = buildModel(units_, diagnostics);

  Resolver resolver{*model_, {}};
  for (const auto &[name, type] : model_->types()) {
    if (!type->isInstance)
      resolver.fullNames.insert(name);
    bridges_.emplace(type->bridgeName, type.get());
  }
  const auto forEachFamily = [&](auto visit) {
    for (const syntax::Unit &unit : units_) {
      for (const syntax::Declaration &declaration : unit.declarations) {
        if (const auto *family = std::get_if<syntax::Family>(&declaration.declared))
          visit(declaration, *family);
        else if (const auto *delegate = std::get_if<syntax::Delegate>(&declaration.declared);
                 delegate && !delegate->typeParameters.empty())
          visit(declaration, *delegate);
      }
    }
  };
  forEachFamily([&](const syntax::Declaration &declaration, const auto &declared) {
    resolver.fullNames.insert(fullName(declaration.section->nameSpace, declared.name.text));
  });
  forEachFamily([&](const syntax::Declaration &declaration, const auto &declared) {
    Family &family = families_[fullName(declaration.section->nameSpace, declared.name.text)];
    family.iid = declared.iid.guid;
    for (const Name &parameter : declared.typeParameters)
      family.typeParameters.push_back(parameter.text);
    if constexpr (requires { declared.members; }) {
      for (syntax::Member member : declared.members) {
        for (const syntax::TypeName *type : typesOf(member))
          resolver.resolve(const_cast<syntax::TypeName &>(*type), *declaration.section,
                           family.typeParameters);
        family.members.push_back({std::move(member), ""});
      }
    } else {
      family.isDelegate = true;
      for (const syntax::Field &argument : declared.arguments)
        family.arguments.push_back(argument.type);
      if (declared.result)
        family.arguments.push_back(*declared.result);
      for (syntax::TypeName &type : family.arguments)
        resolver.resolve(type, *declaration.section, family.typeParameters);
    }
  });
}

const Family *Known::family(const std::string &fullName) const {
  const auto found = families_.find(fullName);
  return found == families_.end() ? nullptr : &found->second;
}

bool Known::hasUnit(const std::string &name) const {
  return std::any_of(model_->units().begin(), model_->units().end(),
                     [&](const auto &unit) { return unit->name == name; });
}

const Type *Known::bridge(const std::string &bridgeName) const {
  const auto found = bridges_.find(bridgeName);
  return found == bridges_.end() ? nullptr : found->second;
}

} // namespace bridgegen::metadata
