#include "generator/model/Declarer.h"

#include <set>

namespace bridgegen {

namespace {

class Declarer {
public:
  Declarer(Model &model, Diagnostics &diagnostics) : model_(model), diagnostics_(diagnostics) {}

  Declared run(const std::vector<syntax::Unit> &units) {
    // By name, so that the outputs do not depend on the order of the command line.
    std::map<std::string, const syntax::Unit *> byName;
    for (const syntax::Unit &unit : units) {
      const auto [other, isNew] = byName.emplace(unit.source->unit, &unit);
      if (!isNew)
        diagnostics_.error({unit.source, 1, 1}, "unit " + quoted(unit.source->unit) + " is also " +
                                                    other->second->source->path);
      if (unit.source->unit.starts_with("WRT"))
        diagnostics_.error({unit.source, 1, 1},
                           "unit " + quoted(unit.source->unit) +
                               " cannot begin with 'WRT', as the hand-written headers do");
    }
    // Known ones first: what they have is there when the others ask for it.
    std::vector<const syntax::Unit *> ordered;
    for (const Origin origin : {Origin::Known, Origin::Own}) {
      for (const auto &[name, unit] : byName) {
        if (unit->source->origin == origin)
          ordered.push_back(unit);
      }
    }
    for (const syntax::Unit *unit : ordered) {
      unit_ = &model_.addUnit(unit->source->unit, unit->source->origin);
      for (const syntax::Declaration &declaration : unit->declarations) {
        declaration_ = &declaration;
        type_ = nullptr;
        std::visit([this](const auto &declared) { declare(declared); }, declaration.declared);
        declared_.items.push_back({&declaration, unit_, type_});
      }
    }
    for (const Declared::Item &item : declared_.items)
      checkUsings(*item.declaration->section);
    return std::move(declared_);
  }

private:
  void checkUsings(const syntax::Section &section) {
    for (const Name &used : section.usings) {
      if (!declared_.scope.hasNamespace(used.text))
        diagnostics_.error(used.at, "no type is declared in the namespace " + quoted(used.text));
    }
  }

  void declare(const syntax::Enumeration &declared) {
    refuseAttributes();
    auto *type = newType<EnumType>(declared.name, declared.bridgeName);
    if (!type)
      return;
    type->isExtern = declared.isExtern;
    type->isFlags = declared.isFlags;
    std::set<std::string> names;
    for (const syntax::Constant &constant : declared.constants) {
      if (!names.insert(constant.name.text).second)
        diagnostics_.error(constant.name.at,
                           "constant " + quoted(constant.name.text) + " occurs twice");
      type->constants.push_back({constant.name.text, constant.value});
    }
    if (!type->isExtern)
      unit_->enums.push_back(type);
  }

  void declare(const syntax::Structure &declared) {
    refuseAttributes();
    if (auto *type = newType<StructType>(declared.name, declared.bridgeName))
      unit_->structs.push_back(type);
  }

  void declare(const syntax::Delegate &declared) {
    useIdentifier(declared.iid, declared.name.text);
    if (!declared.typeParameters.empty()) {
      newFamily(declared, declared.bridgeName).delegate = &declared;
      return;
    }
    refuseAttributes();
    if (auto *type = newType<DelegateType>(declared.name, declared.bridgeName)) {
      type->iid = declared.iid.guid;
      unit_->delegates.push_back(type);
    }
  }

  void declare(const syntax::Interface &declared) {
    refuseAttributes();
    if (Type *known = fromProduct(declared.name))
      return declareAgain(declared, *known);
    useIdentifier(declared.iid, declared.name.text);
    auto *type = newType<InterfaceType>(declared.name, declared.bridgeName);
    if (!type)
      return;
    type->form = declared.form;
    type->iid = declared.iid.guid;
    if (type->hasProtocol())
      unit_->interfaces.push_back(type);
  }

  void declare(const syntax::Family &declared) {
    useIdentifier(declared.iid, declared.name.text);
    newFamily(declared, {}).interface = &declared;
  }

  void declare(const syntax::Instantiation &) { refuseAttributes(); }

  /// Of an interface without a bridge the add-on makes one; a proxy gets members.
  void declareAgain(const syntax::Interface &declared, Type &known) {
    auto *type = known.kind == Kind::Interface ? static_cast<InterfaceType *>(&known) : nullptr;
    if (type && type->form == Form::Extern) {
      takeOver(*type, declared.name, declared.bridgeName);
      type->form = declared.form;
      if (type->hasProtocol())
        unit_->interfaces.push_back(type);
    } else if (type && type->form == Form::Proxy && declared.form == Form::Full &&
               !declared.bridgeName && !model_.completionOf(*type)) {
      type_ = &model_.addCompletion(*type, *unit_, declared.name.at);
    } else {
      return refuseSecond(declared.name);
    }
    if (declared.iid.guid != type->iid)
      diagnostics_.error(declared.iid.at, quoted(type->name) + " has the identifier " +
                                              quoted("{" + type->iid.lower() + "}") +
                                              " in the product");
  }

  void declare(const syntax::Class &declared) {
    Type *known = fromProduct(declared.name);
    const bool isAgain = known && known->isRuntimeClass() && asClass(*known).form == Form::Extern;
    auto *type =
        isAgain ? takeOver(static_cast<ClassType &>(*known), declared.name, declared.bridgeName)
                : newType<ClassType>(declared.name, declared.bridgeName);
    const bool isFull = declared.form == Form::Full;
    for (const syntax::Attribute &attribute : declaration_->attributes) {
      if (attribute.name.text != "activatable" || attribute.value || !isFull)
        refuse(attribute, isFull ? "'activatable'" : "no attribute");
      else if (type)
        type->isActivatable = true;
    }
    if (!type)
      return;
    type->form = declared.form;
    if (type->isBridged())
      unit_->classes.push_back(type);
  }

  /// The product's type of that name, when this unit is an add-on's; or null.
  Type *fromProduct(const Name &name) const {
    Type *type = model_.find(fullName(declaration_->section->nameSpace, name.text));
    return type && type->unit->isKnown && !unit_->isKnown ? type : nullptr;
  }

  /// Makes a type for which the product has no bridge one of this unit.
  template <class T>
  T *takeOver(T &type, const Name &name, const std::optional<Name> &bridgeName) {
    type.unit = unit_;
    type.at = name.at;
    if (bridgeName)
      type.bridgeName = bridgeName->text;
    type_ = &type;
    return &type;
  }

  void refuseSecond(const Name &name) {
    diagnostics_.error(name.at, "type " + quoted(name.text) + " is declared twice");
  }

  /// Enters a type; null when its name is taken, which is reported.
  template <class T>
  T *newType(const Name &name, const std::optional<Name> &bridgeName = {}) {
    auto type = std::make_unique<T>(fullName(declaration_->section->nameSpace, name.text),
                                    bridgeName ? bridgeName->text : name.text);
    if (!newName(name, {type.get(), nullptr}))
      return nullptr;
    type->unit = unit_;
    type->at = name.at;
    type_ = type.get();
    return &model_.add(std::move(type));
  }

  template <class T>
  Family &newFamily(const T &declared, const std::optional<Name> &bridgeName) {
    Family &family = *declared_.families.emplace_back(std::make_unique<Family>());
    family.section = declaration_->section.get();
    family.name = fullName(declaration_->section->nameSpace, declared.name.text);
    family.bridgeName = bridgeName ? bridgeName->text : declared.name.text;
    family.booleanSpelling = "bool";
    family.typeParameters = &declared.typeParameters;
    family.iid = declared.iid.guid;
    family.unit = unit_;
    family.at = declared.name.at;
    for (const syntax::Attribute &attribute : declaration_->attributes) {
      if (attribute.name.text == "boolean" && attribute.value)
        family.booleanSpelling = attribute.value->text;
      else
        refuse(attribute, "'boolean(\"...\")'");
    }
    newName(declared.name, {nullptr, &family});
    return family;
  }

  bool newName(const Name &name, Entry entry) {
    if (model_.builtIn(name.text)) {
      diagnostics_.error(name.at, quoted(name.text) + " is a built-in type");
      return false;
    }
    if (declared_.scope.add(declaration_->section->nameSpace, name.text, entry))
      return true;
    refuseSecond(name);
    return false;
  }

  void useIdentifier(const syntax::Identifier &iid, const std::string &name) {
    const auto [other, isNew] = identifiers_.emplace(iid.guid, name);
    if (!isNew)
      diagnostics_.error(iid.at, "identifier " + quoted("{" + iid.guid.lower() + "}") +
                                     " is already that of " + quoted(other->second));
  }

  void refuseAttributes() {
    for (const syntax::Attribute &attribute : declaration_->attributes)
      refuse(attribute, "no attribute");
  }

  void refuse(const syntax::Attribute &attribute, const std::string &expected) {
    diagnostics_.error(attribute.name.at,
                       "expected " + expected + " here, found " + quoted(attribute.name.text));
  }

  Model &model_;
  Diagnostics &diagnostics_;
  Declared declared_;
  std::map<Guid, std::string> identifiers_;
  Unit *unit_ = nullptr;
  const syntax::Declaration *declaration_ = nullptr;
  Type *type_ = nullptr; ///< what the declaration became
};

} // namespace

Declared declare(const std::vector<syntax::Unit> &units, Model &model, Diagnostics &diagnostics) {
  return Declarer(model, diagnostics).run(units);
}

} // namespace bridgegen
