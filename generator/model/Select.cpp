#include "generator/model/Select.h"

#include <algorithm>

namespace bridgegen {

namespace {

/// How much of a type is needed: nothing, enough to name it, or all of it.
enum class Need { None, Named, Whole };

class Selector {
public:
  explicit Selector(Model &model) : model_(model) {}

  bool add(const std::string &name) {
    bool isFound = false;
    for (const auto &[full, type] : model_.types()) {
      const bool isIn = !type->isInstance && full.size() > name.size() &&
                        full.starts_with(name + ".") &&
                        full.find('.', name.size() + 1) == full.npos;
      if (full == name || isIn) {
        need(*type, Need::Whole);
        isFound = true;
      }
    }
    return isFound;
  }

  void apply() {
    for (const auto &[name, type] : model_.types()) {
      if (needs_[type.get()] == Need::Named)
        reduce(*type);
    }
    for (const auto &unit : model_.units()) {
      keepNeeded(unit->enums);
      keepNeeded(unit->structs);
      keepNeeded(unit->delegates);
      keepNeeded(unit->interfaces);
      keepNeeded(unit->classes);
    }
  }

private:
  void need(const Type &type, Need need) {
    // Instances have no proxies of their own: whoever gets one means to use it.
    if (type.isInstance)
      need = Need::Whole;
    Need &known = needs_[&type];
    if (known >= need)
      return;
    known = need;
    switch (type.kind) {
    case Kind::Struct:
      for (const StructType::Field &field : asStruct(type).fields)
        this->need(*field.type, Need::Named);
      break;
    case Kind::Delegate:
      for (const DelegateType::Argument &argument : asDelegate(type).arguments)
        this->need(*argument.type, Need::Named);
      if (asDelegate(type).result)
        this->need(*asDelegate(type).result, Need::Named);
      break;
    case Kind::Interface:
      if (need == Need::Whole)
        needMembers(asInterface(type));
      break;
    case Kind::Class:
      needInterfaces(asClass(type), need);
      break;
    case Kind::Scalar:
    case Kind::String:
    case Kind::Object:
    case Kind::Enum:
      break;
    }
  }

  void needMembers(const InterfaceType &interface) {
    for (const Member &member : interface.members) {
      if (member.result)
        need(*member.result, Need::Named);
      for (const Parameter &parameter : member.parameters)
        need(*parameter.type, Need::Named);
    }
  }

  void needInterfaces(const ClassType &type, Need need) {
    if (need == Need::Named) {
      if (type.defaultInterface())
        this->need(*type.defaultInterface(), Need::Named);
      return;
    }
    for (const auto *listed : {&type.interfaces, &type.classSide}) {
      for (const ClassType::Listed &each : *listed)
        this->need(*each, Need::Whole);
    }
  }

  /// To a proxy.
  static void reduce(Type &type) {
    if (type.kind == Kind::Interface) {
      auto &interface = static_cast<InterfaceType &>(type);
      interface.members.clear();
      if (interface.isFull())
        interface.form = Form::Proxy;
    } else if (type.kind == Kind::Class) {
      auto &runtimeClass = static_cast<ClassType &>(type);
      if (runtimeClass.isFull())
        runtimeClass.form = Form::Proxy;
      runtimeClass.isActivatable = false;
      runtimeClass.classSide.clear();
      if (runtimeClass.interfaces.size() > 1)
        runtimeClass.interfaces.erase(runtimeClass.interfaces.begin() + 1,
                                      runtimeClass.interfaces.end());
    }
  }

  template <class T>
  void keepNeeded(std::vector<const T *> &types) {
    std::erase_if(types, [&](const T *type) { return needs_[type] == Need::None; });
  }

  Model &model_;
  std::map<const Type *, Need> needs_;
};

} // namespace

std::optional<std::string> select(Model &model, const std::vector<std::string> &names) {
  Selector selector(model);
  for (const std::string &name : names) {
    if (!selector.add(name))
      return name;
  }
  selector.apply();
  return std::nullopt;
}

} // namespace bridgegen
