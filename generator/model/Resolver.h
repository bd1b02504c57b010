#ifndef WRT_GENERATOR_RESOLVER_H
#define WRT_GENERATOR_RESOLVER_H

#include "generator/model/Scope.h"

namespace bridgegen {

/// Where a type's name stands: in which namespace, and inside a generic type what its parameters
/// are.
struct Context {
  const syntax::Section *section;
  std::map<std::string, const Type *> typeParameters;

  /// For the inside of an instance of `family`.
  static Context of(const Family &family, const std::vector<const Type *> &arguments);
};

/// Looks names of types up and makes instances of generic ones.
class Resolver {
public:
  Resolver(const Scope &scope, Model &model, Diagnostics &diagnostics)
      : scope_(scope), model_(model), diagnostics_(diagnostics) {}

  /// The type that `name` means, or null after an error was reported.
  const Type *resolve(const syntax::TypeName &name, const Context &context);

  /// The model's object for the instance that `name` means; a plain type or an unknown one is
  /// reported and gives null.
  InterfaceType *resolveInstance(const syntax::TypeName &name, const Context &context);

  /// The model's object for the instance of `family` for its own parameters.
  Type *open(const Family &family);

  /// From now on instances are made that no bridge can be named after.
  void needNoSpellings() { needsSpellings_ = false; }

  /// Whether what is resolved from now on is the product's, in a run for an add-on.
  void setKnown(bool isKnown) { isKnown_ = isKnown; }

  /// Looks up what a delegate takes and gives.
  void complete(DelegateType &delegate, const syntax::Delegate &syntax, const Context &context);

  /// The family that an instance, which this made, is of.
  const Family &familyOf(const Type &instance) const { return *families_.at(&instance); }

private:
  Type *lookUp(const syntax::TypeName &name, const Context &context);
  Type *instantiate(const Family &family, std::vector<const Type *> arguments, Position at);
  /// What stands for a type argument in the names of instances; nothing after an error.
  std::optional<std::string> spelling(const Family &family, const Type &argument, Position at);
  std::string hint(const std::string &name) const;
  Type *fail(Position at, std::string message);

  const Scope &scope_;
  Model &model_;
  Diagnostics &diagnostics_;
  std::map<const Type *, const Family *> families_; ///< of the instances
  bool needsSpellings_ = true;
  bool isKnown_ = false;
  bool insideDelegate_ = false; ///< its arguments are being looked up
};

inline constexpr const char *kDelegateInDelegate = "a delegate cannot take another one";

} // namespace bridgegen

#endif
