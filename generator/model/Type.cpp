#include "generator/model/Type.h"

#include "generator/model/Model.h"

#include <algorithm>
#include <bit>
#include <cassert>

namespace bridgegen {

std::string Type::cName() const { return (unit ? unit->target.prefix : "") + "WRT" + bridgeName; }

std::string Type::scopeName() const { return (unit ? unit->target.prefix : "") + bridgeName; }

namespace {

/// What the Objective-C side knows the type as.
const Type &seenAs(const Type &type) {
  const InterfaceType *completed =
      type.kind == Kind::Interface ? asInterface(type).completes : nullptr;
  return completed ? *completed : type;
}

} // namespace

std::string Type::bridgeClass() const {
  return seenAs(*this).cName() + (isInstance ? "_Bridge" : "Bridge");
}

std::string Type::accessorSelector() const { return "_" + seenAs(*this).cName() + "WithError:"; }

std::string Type::simpleName() const {
  const std::string base = name.substr(0, name.find('<'));
  const size_t dot = base.rfind('.');
  return dot == base.npos ? base : base.substr(dot + 1);
}

bool EnumType::hasUnnamedFlags() const {
  uint64_t named = 0;
  for (const Constant &constant : constants) {
    if (std::has_single_bit(static_cast<uint64_t>(constant.value)))
      named |= static_cast<uint64_t>(constant.value);
  }
  return std::any_of(constants.begin(), constants.end(), [&](const Constant &constant) {
    return (static_cast<uint64_t>(constant.value) & ~named) != 0;
  });
}

namespace {

template <class T>
const T &as(const Type &type, Kind kind) {
  assert(type.kind == kind);
  static_cast<void>(kind);
  return static_cast<const T &>(type);
}

} // namespace

const EnumType &asEnum(const Type &type) { return as<EnumType>(type, Kind::Enum); }
const StructType &asStruct(const Type &type) { return as<StructType>(type, Kind::Struct); }
const DelegateType &asDelegate(const Type &type) { return as<DelegateType>(type, Kind::Delegate); }
const InterfaceType &asInterface(const Type &type) {
  return as<InterfaceType>(type, Kind::Interface);
}
const ClassType &asClass(const Type &type) { return as<ClassType>(type, Kind::Class); }

const InterfaceType *crossingInterface(const Type &type) {
  if (type.kind == Kind::Interface)
    return &asInterface(type);
  return type.kind == Kind::Class ? asClass(type).defaultInterface() : nullptr;
}

const Instance &asInstance(const Type &type) {
  return type.isDelegate() ? *asDelegate(type).instance : *asInterface(type).instance;
}

} // namespace bridgegen
