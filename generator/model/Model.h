#ifndef WRT_GENERATOR_MODEL_H
#define WRT_GENERATOR_MODEL_H

#include "generator/model/Target.h"
#include "generator/model/Type.h"
#include "generator/read/Diagnostics.h"

#include <map>
#include <memory>
#include <set>

namespace bridgegen {

/// What one declarations file adds to the model, each list in the order of the outputs.
struct Unit {
  std::string name;
  Target target;        ///< whose bridges its types are
  bool isKnown = false; ///< made elsewhere, and here referred to
  std::vector<const EnumType *> enums;
  std::vector<const StructType *> structs;
  std::vector<const DelegateType *> delegates;   ///< as declared, and used instances by name
  std::vector<const InterfaceType *> interfaces; ///< as declared or listed; no extern ones
  std::vector<const ClassType *> classes;        ///< no extern ones
};

/// Units in the order of their names.
struct ByName {
  bool operator()(const Unit *left, const Unit *right) const { return left->name < right->name; }
};
using Units = std::set<const Unit *, ByName>;

/// All types that the declarations tell of, looked up and complete.
class Model {
public:
  explicit Model(Target target = {});

  /// What the bridges are made for.
  const Target &target() const { return target_; }

  /// The built-in type of that name, or null.
  const Type *builtIn(std::string_view name) const;
  const Type &scalar(const Scalar &scalar) const { return *builtIn(scalar.name); }
  /// What the type parameter of that name is inside of its family.
  const Type &typeParameter(const std::string &name);

  /// In the order of the files, the known ones first.
  const std::vector<std::unique_ptr<Unit>> &units() const { return units_; }
  /// The units whose bridges are to be made.
  std::vector<const Unit *> ownUnits() const;
  Unit &addUnit(std::string name, Origin origin);
  /// The unit of a declared type or an instance.
  Unit &unitOf(const Type &type);

  /// Keeps a type; its name must be new.
  template <class T>
  T &add(std::unique_ptr<T> type) {
    T &added = *type;
    types_.emplace(added.name, std::move(type));
    return added;
  }
  /// Keeps an interface that completes a proxy of the product, which goes on being found by name.
  InterfaceType &addCompletion(const InterfaceType &proxy, Unit &unit, Position at);
  /// The one that completes the proxy, or null.
  const InterfaceType *completionOf(const InterfaceType &proxy) const;

  /// The declared type or instance of this full name, or null.
  Type *find(const std::string &name) const;
  /// All declared types and instances by name.
  const std::map<std::string, std::unique_ptr<Type>> &types() const { return types_; }

  /// The generic interfaces and delegates in the order of the units: each is the instance for its
  /// own parameters, with its members.
  const std::vector<const Type *> &families() const { return families_; }
  void addFamily(const Type &open) { families_.push_back(&open); }

  /// The classes that list the interface among their instance interfaces, in the order of the
  /// units.
  std::vector<const ClassType *> implementers(const InterfaceType &interface) const;
  /// The class whose static or factory interface this is, or null.
  const ClassType *classSideOwner(const InterfaceType &interface) const;

private:
  Target target_;
  std::map<std::string, std::unique_ptr<Type>, std::less<>> builtIns_;
  std::map<std::string, std::unique_ptr<Type>> typeParameters_;
  std::vector<const Type *> families_;
  std::vector<std::unique_ptr<Unit>> units_;
  std::map<std::string, std::unique_ptr<Type>> types_;
  std::map<const InterfaceType *, std::unique_ptr<InterfaceType>> completions_;
};

} // namespace bridgegen

#endif
