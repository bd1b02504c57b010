#include "generator/model/Model.h"

#include <algorithm>

namespace bridgegen {

Model::Model(Target target) : target_(std::move(target)) {
  const auto add = [this](Kind kind, const char *name, const char *bridgeName) {
    auto &type = builtIns_[name];
    type = std::make_unique<Type>(kind, name, bridgeName);
    return type.get();
  };
  for (const Scalar &scalar : kScalars)
    add(Kind::Scalar, scalar.name, scalar.bridgeName)->scalar = &scalar;
  add(Kind::String, "String", "HSTRING");
  add(Kind::Object, "Object", "IInspectable");
}

const Type *Model::builtIn(std::string_view name) const {
  const auto found = builtIns_.find(name);
  return found == builtIns_.end() ? nullptr : found->second.get();
}

const Type &Model::typeParameter(const std::string &name) {
  auto &type = typeParameters_[name];
  if (!type) {
    // No declared type is called that.
    type = std::make_unique<Type>(Kind::Object, "!" + name, name);
    type->isOpen = true;
  }
  return *type;
}

Unit &Model::addUnit(std::string name, Origin origin) {
  units_.push_back(std::make_unique<Unit>());
  Unit &unit = *units_.back();
  unit.name = std::move(name);
  unit.isKnown = origin == Origin::Known;
  if (!unit.isKnown)
    unit.target = target_;
  return unit;
}

std::vector<const Unit *> Model::ownUnits() const {
  std::vector<const Unit *> own;
  for (const auto &unit : units_) {
    if (!unit->isKnown)
      own.push_back(unit.get());
  }
  return own;
}

Unit &Model::unitOf(const Type &type) {
  return **std::find_if(units_.begin(), units_.end(),
                        [&](const auto &unit) { return unit.get() == type.unit; });
}

InterfaceType &Model::addCompletion(const InterfaceType &proxy, Unit &unit, Position at) {
  auto &completion = completions_[&proxy];
  completion = std::make_unique<InterfaceType>(proxy.name, proxy.bridgeName + "_Completed");
  completion->form = Form::Full;
  completion->isInstance = proxy.isInstance;
  completion->instance = proxy.instance;
  completion->iid = proxy.iid;
  completion->unit = &unit;
  completion->at = at;
  completion->completes = &proxy;
  unit.interfaces.push_back(completion.get());
  return *completion;
}

const InterfaceType *Model::completionOf(const InterfaceType &proxy) const {
  const auto found = completions_.find(&proxy);
  return found == completions_.end() ? nullptr : found->second.get();
}

Type *Model::find(const std::string &name) const {
  const auto found = types_.find(name);
  return found == types_.end() ? nullptr : found->second.get();
}

namespace {

bool contains(const std::vector<ClassType::Listed> &interfaces, const InterfaceType &wanted) {
  return std::any_of(interfaces.begin(), interfaces.end(),
                     [&](const ClassType::Listed &listed) { return listed.interface == &wanted; });
}

} // namespace

std::vector<const ClassType *> Model::implementers(const InterfaceType &interface) const {
  std::vector<const ClassType *> found;
  for (const auto &unit : units_) {
    for (const ClassType *type : unit->classes) {
      if (contains(type->interfaces, interface))
        found.push_back(type);
    }
  }
  return found;
}

const ClassType *Model::classSideOwner(const InterfaceType &interface) const {
  for (const auto &unit : units_) {
    for (const ClassType *type : unit->classes) {
      if (contains(type->classSide, interface))
        return type;
    }
  }
  return nullptr;
}

} // namespace bridgegen
