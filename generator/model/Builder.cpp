#include "generator/model/Builder.h"

#include "generator/model/Declarer.h"
#include "generator/model/MemberBuilder.h"
#include "generator/model/Signature.h"

#include <algorithm>
#include <set>

namespace bridgegen {

namespace {

/// Completes what has been declared.
class Builder {
public:
  Builder(Declared declared, Model &model, Diagnostics &diagnostics)
      : declared_(std::move(declared)), model_(model), diagnostics_(diagnostics),
        resolver_(declared_.scope, model, diagnostics) {}

  void run() {
    for (const Declared::Item &item : declared_.items)
      visit(item,
            [&](const auto &syntax, const Context &context) { define(item, syntax, context); });
    // Members make instances, so they come after everything that says which instances are bridged.
    for (const Declared::Item &item : declared_.items)
      visit(item,
            [&](const auto &syntax, const Context &context) { addMembers(item, syntax, context); });
    for (InterfaceType *instance : instances_) {
      resolver_.setKnown(instance->unit->isKnown);
      completeInstance(*instance);
    }
    resolver_.setKnown(false);
    for (const auto &[completion, family] : completions_) {
      completion->iid = completion->completes->iid;
      completion->members = members(family->interface->members,
                                    Context::of(*family, completion->instance->arguments));
    }
    for (const auto &family : declared_.families)
      open(*family);
    findCompletedClasses();
    collectDelegates();
    resolver_.needNoSpellings();
    for (const Declared::Item &item : declared_.items)
      visit(item, [&](const auto &syntax, const Context &context) { know(syntax, context); });
    // The product has what comes with its own instances, whatever an add-on declares.
    closeOverInstances(true);
    closeOverInstances(false);
  }

private:
  template <class Visit>
  void visit(const Declared::Item &item, Visit visit) {
    resolver_.setKnown(item.unit->isKnown);
    const Context context{item.declaration->section.get(), {}};
    std::visit([&](const auto &syntax) { visit(syntax, context); }, item.declaration->declared);
  }

  template <class Syntax>
  void define(const Declared::Item &, const Syntax &, const Context &) {}

  void define(const Declared::Item &item, const syntax::Structure &syntax, const Context &context) {
    if (!item.type)
      return;
    std::set<std::string> names;
    for (const syntax::Field &field : syntax.fields) {
      if (!names.insert(field.name.text).second)
        diagnostics_.error(field.name.at, "field " + quoted(field.name.text) + " occurs twice");
      const Type *type = resolver_.resolve(field.type, context);
      if (type && !type->isValue() && !type->isString())
        diagnostics_.error(field.type.name.at,
                           quoted(type->name) + " cannot be the type of a field");
      else if (type)
        static_cast<StructType *>(item.type)->fields.push_back({type, field.name.text});
    }
  }

  void define(const Declared::Item &item, const syntax::Delegate &syntax, const Context &context) {
    if (item.type)
      resolver_.complete(static_cast<DelegateType &>(*item.type), syntax, context);
  }

  void define(const Declared::Item &item, const syntax::Instantiation &syntax,
              const Context &context) {
    if (syntax.form == Form::Extern)
      return;
    for (const syntax::TypeName &name : syntax.types) {
      InterfaceType *instance = resolver_.resolveInstance(name, context);
      if (!instance)
        continue;
      if (instance->hasProtocol() && instance->unit->isKnown && !item.unit->isKnown) {
        // The one that is there serves, if it does as much.
        if (instance->isFull() || syntax.form == Form::Proxy)
          continue;
        if (!model_.completionOf(*instance)) {
          completions_.push_back({&model_.addCompletion(*instance, *item.unit, name.name.at),
                                  &resolver_.familyOf(*instance)});
          continue;
        }
      }
      if (instance->hasProtocol()) {
        diagnostics_.error(name.name.at, quoted(instance->name) + " is listed twice");
        continue;
      }
      instance->form = syntax.form;
      instance->unit = item.unit;
      instance->at = name.name.at;
      instances_.push_back(instance);
      item.unit->interfaces.push_back(instance);
    }
  }

  void define(const Declared::Item &item, const syntax::Class &syntax, const Context &context) {
    if (!item.type)
      return;
    auto &type = static_cast<ClassType &>(*item.type);
    // The default interface of a class that the product knows by name alone.
    const InterfaceType *known = item.type->unit == item.unit ? type.defaultInterface() : nullptr;
    type.interfaces.clear();
    std::set<const Type *> seen;
    const auto list = [&](const std::vector<syntax::TypeName> &names, Form form, auto &listed) {
      for (const syntax::TypeName &name : names) {
        const Type *interface = resolver_.resolve(name, context);
        if (!interface)
          continue;
        if (interface->kind != Kind::Interface)
          diagnostics_.error(name.name.at,
                             "expected an interface, found " + quoted(name.name.text));
        else if (!seen.insert(interface).second)
          diagnostics_.error(name.name.at, quoted(interface->name) + " occurs twice");
        else
          listed.push_back({&asInterface(*interface), form, name.name.at});
      }
    };
    list(syntax.interfaces, Form::Full, type.interfaces);
    for (const syntax::ClassSide &side : syntax.classSide)
      list(side.interfaces, side.form, type.classSide);
    if (known && !type.interfaces.empty() && type.defaultInterface() != known)
      diagnostics_.error(type.interfaces[0].at, quoted(type.name) + " has the default interface " +
                                                    quoted(known->name) + " in the product");
  }

  template <class Syntax>
  void addMembers(const Declared::Item &, const Syntax &, const Context &) {}

  void addMembers(const Declared::Item &item, const syntax::Interface &syntax,
                  const Context &context) {
    if (item.type)
      static_cast<InterfaceType *>(item.type)->members = members(syntax.members, context);
  }

  std::vector<Member> members(const std::vector<syntax::Member> &declared, const Context &context) {
    return MemberBuilder(resolver_, model_, diagnostics_, context).build(declared);
  }

  void completeInstance(InterfaceType &interface) {
    // An argument without a signature is for `check` to report.
    interface.iid = signatures_.identifier(*interface.instance);
    if (interface.isFull())
      interface.members = membersOf(interface);
  }

  void findCompletedClasses() {
    for (const Unit *unit : model_.ownUnits()) {
      for (const InterfaceType *interface : unit->interfaces) {
        if (!interface->completes)
          continue;
        for (const ClassType *type : model_.implementers(*interface->completes)) {
          if (type->unit->isKnown)
            const_cast<InterfaceType *>(interface)->completedClasses.push_back(type);
        }
      }
    }
  }

  std::vector<Member> membersOf(const InterfaceType &instance) {
    const Family &family = resolver_.familyOf(instance);
    return members(family.interface->members, Context::of(family, instance.instance->arguments));
  }

  /// Also finds what is wrong in a family that has no instance with members.
  void open(const Family &family) {
    Type *type = resolver_.open(family);
    if (!type)
      return;
    if (type->kind == Kind::Interface) {
      auto &interface = static_cast<InterfaceType &>(*type);
      interface.members = membersOf(interface);
      resolveRequired(interface);
    }
    model_.addFamily(*type);
  }

  void resolveRequired(const InterfaceType &instance) {
    const Family &family = resolver_.familyOf(instance);
    for (const syntax::TypeName &name : family.interface->required)
      resolver_.resolveInstance(name, Context::of(family, instance.instance->arguments));
  }

  template <class Syntax>
  void know(const Syntax &, const Context &) {}

  void know(const syntax::Instantiation &syntax, const Context &context) {
    if (syntax.form == Form::Extern) {
      for (const syntax::TypeName &name : syntax.types)
        resolver_.resolveInstance(name, context);
    }
  }

  /// Makes the instances that come with those there are, in what their members name and in what
  /// their objects have besides, and gives every one its identifier.
  void closeOverInstances(bool isKnown) {
    resolver_.setKnown(isKnown);
    // A family may name ever bigger instances of itself.
    size_t biggest = 0;
    std::set<const Type *> seen;
    for (std::vector<Type *> fresh = newInstances(seen, isKnown); !fresh.empty();
         fresh = newInstances(seen, isKnown)) {
      if (seen.size() == fresh.size()) {
        for (const Type *type : fresh)
          biggest = std::max(biggest, sizeOf(*type) + 1);
      }
      for (Type *type : fresh) {
        if (type->kind == Kind::Delegate) {
          auto &delegate = static_cast<DelegateType &>(*type);
          delegate.iid = signatures_.identifier(*delegate.instance);
        } else {
          auto &interface = static_cast<InterfaceType &>(*type);
          interface.iid = signatures_.identifier(*interface.instance);
          if (sizeOf(interface) <= biggest) {
            membersOf(interface);
            resolveRequired(interface);
          }
        }
      }
    }
  }

  /// The instances, or the known ones, that are not in `seen`, which they are added to.
  std::vector<Type *> newInstances(std::set<const Type *> &seen, bool isKnown) const {
    std::vector<Type *> fresh;
    for (const auto &[name, type] : model_.types()) {
      if (type->isInstance && !type->isOpen && type->isKnown >= isKnown &&
          seen.insert(type.get()).second)
        fresh.push_back(type.get());
    }
    return fresh;
  }

  /// How many instances an instance is made of, with itself.
  static size_t sizeOf(const Type &type) {
    return static_cast<size_t>(std::ranges::count(type.name, '<'));
  }

  /// Instances of generic delegates are made by being used. They belong to their family's unit, or,
  /// where that is known and does without, to the first that uses them.
  void collectDelegates() {
    std::map<std::string, DelegateType *> used;
    std::map<const Type *, Unit *> users;
    Unit *user = nullptr;
    const auto use = [&](const Type *type) {
      if (!type || !type->isDelegate() || !type->isInstance)
        return;
      auto *delegate = static_cast<DelegateType *>(model_.find(type->name));
      if (used.emplace(type->bridgeName, delegate).second)
        users.emplace(type, user);
    };
    for (const auto &unit : model_.units()) {
      user = unit.get();
      for (const InterfaceType *interface : unit->interfaces) {
        for (const Member &member : interface->members) {
          use(member.result);
          for (const Parameter &parameter : member.parameters)
            use(parameter.type);
        }
      }
    }
    for (const auto &[name, delegate] : used) {
      delegate->iid = signatures_.identifier(*delegate->instance);
      Unit &familys = model_.unitOf(*delegate);
      Unit &user = *users.at(delegate);
      Unit &unit = familys.isKnown && !user.isKnown ? user : familys;
      delegate->unit = &unit;
      unit.delegates.push_back(delegate);
    }
  }

  Declared declared_;
  Model &model_;
  Diagnostics &diagnostics_;
  Resolver resolver_;
  Signatures signatures_;
  std::vector<InterfaceType *> instances_;
  std::vector<std::pair<InterfaceType *, const Family *>> completions_; ///< of instances
};

} // namespace

std::unique_ptr<Model> buildModel(const std::vector<syntax::Unit> &units, Diagnostics &diagnostics,
                                  const Target &target) {
  auto model = std::make_unique<Model>(target);
  Builder(declare(units, *model, diagnostics), *model, diagnostics).run();
  return model;
}

} // namespace bridgegen
