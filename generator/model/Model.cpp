#include "generator/model/Model.h"

#include <algorithm>

namespace bridgegen {

Model::Model() {
  // The bridge names give the spelling of type arguments, `WRTHSTRING`.
  const std::pair<Kind, std::pair<const char *, const char *>> all[] = {
      {Kind::Boolean, {"Boolean", "bool"}},
      {Kind::UInt8, {"UInt8", "UINT8"}},
      {Kind::Int16, {"Int16", "INT16"}},
      {Kind::UInt16, {"UInt16", "UINT16"}},
      {Kind::Int32, {"Int32", "INT32"}},
      {Kind::UInt32, {"UInt32", "UINT32"}},
      {Kind::Int64, {"Int64", "INT64"}},
      {Kind::UInt64, {"UInt64", "UINT64"}},
      {Kind::Char16, {"Char16", "CHAR16"}},
      {Kind::Single, {"Single", "FLOAT"}},
      {Kind::Double, {"Double", "DOUBLE"}},
      {Kind::Guid, {"Guid", "GUID"}},
      {Kind::HResult, {"HResult", "HRESULT"}},
      {Kind::Token, {"EventRegistrationToken", "EventRegistrationToken"}},
      {Kind::String, {"String", "HSTRING"}},
      {Kind::Object, {"Object", "IInspectable"}},
  };
  for (const auto &[kind, names] : all)
    builtIns_.emplace(kind, std::make_unique<Type>(kind, names.first, names.second));
}

const Type &Model::builtIn(Kind kind) const { return *builtIns_.at(kind); }

const Type *Model::builtIn(std::string_view name) const {
  for (const auto &[kind, type] : builtIns_) {
    if (type->name == name)
      return type.get();
  }
  return nullptr;
}

Unit &Model::addUnit(std::string name) {
  units_.push_back(std::make_unique<Unit>());
  units_.back()->name = std::move(name);
  return *units_.back();
}

Unit &Model::unitOf(const Type &type) {
  return **std::find_if(units_.begin(), units_.end(),
                        [&](const auto &unit) { return unit.get() == type.unit; });
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
