#include "generator/model/Check.h"

#include "generator/model/Resolver.h"
#include "generator/model/Signature.h"

#include <algorithm>
#include <tuple>

namespace bridgegen {

namespace {

class Checker {
public:
  Checker(const Model &model, Diagnostics &diagnostics)
      : model_(model), diagnostics_(diagnostics) {}

  void run() {
    checkNames();
    for (const auto &unit : model_.units()) {
      for (const StructType *type : unit->structs)
        checkSignature(*type, type->at, "contains itself");
      for (const DelegateType *type : unit->delegates)
        checkDelegate(*type);
      for (const InterfaceType *type : unit->interfaces)
        checkInterface(*type);
      for (const ClassType *type : unit->classes)
        checkClass(*type);
    }
    for (const auto &[name, type] : model_.types()) {
      if (type->kind == Kind::Class && !asClass(*type).isBridged())
        checkExtern(asClass(*type));
    }
  }

private:
  /// Names of C structures and of Objective-C classes are made of one name, so it must be unique.
  /// The second place is the wrong one.
  void checkNames() {
    std::map<std::string, const Type *> names;
    for (const auto &unit : model_.units()) {
      std::vector<const Type *> types(unit->enums.begin(), unit->enums.end());
      types.insert(types.end(), unit->structs.begin(), unit->structs.end());
      types.insert(types.end(), unit->delegates.begin(), unit->delegates.end());
      types.insert(types.end(), unit->interfaces.begin(), unit->interfaces.end());
      types.insert(types.end(), unit->classes.begin(), unit->classes.end());
      std::sort(types.begin(), types.end(), [](const Type *a, const Type *b) {
        return std::tie(a->at.line, a->at.column) < std::tie(b->at.line, b->at.column);
      });
      for (const Type *type : types) {
        const auto [other, isNew] = names.emplace(type->cName(), type);
        if (!isNew)
          diagnostics_.error(type->at, "bridge name " + quoted(type->bridgeName) +
                                           " is already that of " + quoted(other->second->name));
      }
    }
  }

  void checkSignature(const Type &type, Position at, const std::string &problem) {
    if (!signatures_.has(type))
      diagnostics_.error(at, quoted(type.name) + " " + problem);
  }

  void checkDelegate(const DelegateType &delegate) {
    // An instance is right or wrong by its arguments, so the place is where it is first used.
    const auto report = [&](Position at, const std::string &problem) {
      if (delegate.isInstance)
        diagnostics_.error(delegate.at, quoted(delegate.name) + ": " + problem);
      else
        diagnostics_.error(at, problem);
    };
    if (delegate.isInstance)
      checkArguments(delegate, *delegate.instance);
    for (const DelegateType::Argument &argument : delegate.arguments) {
      if (const std::string problem = crossingProblem(*argument.type); !problem.empty())
        report(argument.at, problem);
      else if (argument.type->isDelegate())
        report(argument.at, kDelegateInDelegate);
    }
    if (!delegate.result)
      return;
    // An adapter asks what the block returns for an interface, which `Object` does not name.
    if (!delegate.returnsString() && !crossingInterface(*delegate.result))
      report(delegate.at, "a delegate can return a string, an interface or a class, not " +
                              quoted(delegate.result->name));
    else if (!delegate.arguments.empty())
      report(delegate.arguments[0].at, "a delegate that returns something cannot take anything");
    else if (const std::string problem = crossingProblem(*delegate.result); !problem.empty())
      report(delegate.at, problem);
  }

  /// The identifier of an instance comes from the signatures of its arguments, and that of a class
  /// from its default interface.
  void checkArguments(const Type &type, const Instance &instance) {
    for (const Type *argument : instance.arguments) {
      if (argument->isRuntimeClass() && !asClass(*argument).defaultInterface())
        diagnostics_.error(type.at,
                           quoted(argument->name) +
                               " has no default interface, so it cannot be a type argument");
      if (argument->isInstance && argument->kind == Kind::Interface)
        checkArguments(type, *asInterface(*argument).instance);
    }
  }

  void checkInterface(const InterfaceType &interface) {
    if (interface.isInstance)
      checkArguments(interface, *interface.instance);
    for (const Member &member : interface.members) {
      if (member.isBridged())
        checkMember(interface, member);
    }
  }

  void checkMember(const InterfaceType &interface, const Member &member) {
    // A family's members are right or wrong for an instance, so the place is where that is listed.
    const auto report = [&](Position at, const std::string &problem) {
      if (interface.isInstance)
        diagnostics_.error(interface.at, quoted(interface.name) + ", member " +
                                             quoted(member.name) + ": " + problem);
      else
        diagnostics_.error(at, problem);
    };
    if (member.result) {
      const std::string problem = crossingProblem(*member.result);
      if (!problem.empty())
        report(member.resultAt, problem);
      else if (member.result->isDelegate())
        report(member.resultAt, "a delegate cannot be a result");
    }
    for (const Parameter &parameter : member.parameters) {
      const std::string problem = crossingProblem(*parameter.type);
      if (!problem.empty())
        report(parameter.at, problem);
      else if (parameter.type->isDelegate() && !parameter.passing->takesDelegates)
        report(parameter.at, "a delegate can only be an in-parameter");
    }
  }

  /// Why values of the type cannot cross, or nothing.
  std::string crossingProblem(const Type &type) const {
    if (type.isRuntimeClass()) {
      const ClassType &runtimeClass = asClass(type);
      if (!runtimeClass.isBridged())
        return quoted(type.name) + " has no bridge: it is 'extern'";
      if (!runtimeClass.defaultInterface())
        return quoted(type.name) + " has no default interface, so there are no objects of it";
    }
    if (type.kind == Kind::Interface) {
      const InterfaceType &interface = asInterface(type);
      if (interface.isClassSide())
        return quoted(type.name) + " has no bridge: its members are those of a class";
      if (!interface.isBridged())
        return quoted(type.name) +
               (interface.isInstance
                    ? " has no bridge: it is listed neither as 'full' nor as 'proxy'"
                    : " has no bridge: it is 'extern'");
    }
    return "";
  }

  void checkClass(const ClassType &type) {
    for (const ClassType::Listed &listed : type.interfaces) {
      if (const std::string problem = listedProblem(type, listed); !problem.empty())
        diagnostics_.error(listed.at, problem);
    }
    for (const ClassType::Listed &listed : type.classSide) {
      if (type.isProxy())
        diagnostics_.error(listed.at, "a proxy class has no statics or factories, found " +
                                          quoted(listed->name));
      else if (listed->form != listed.form)
        diagnostics_.error(listed.at, quoted(listed->name) + " is no " +
                                          (listed.form == Form::Statics ? "'statics interface'"
                                                                        : "'factory interface'"));
    }
    if (type.isProxy() && type.interfaces.empty())
      diagnostics_.error(type.at, "a proxy class needs a default interface");
    checkDefaultInterface(type);
  }

  std::string listedProblem(const ClassType &type, const ClassType::Listed &listed) const {
    if (listed->isClassSide())
      return quoted(listed->name) + " belongs behind " +
             (listed->form == Form::Statics ? "'statics'" : "'factory'");
    if (const std::string problem = crossingProblem(*listed); !problem.empty())
      return problem;
    if (type.isFull() && listed->isProxyOnly() && !listed->isInstance)
      return "a full class cannot have the proxy interface " + quoted(listed->name);
    return "";
  }

  void checkExtern(const ClassType &type) {
    if (type.interfaces.size() != 1 || !type.classSide.empty())
      diagnostics_.error(type.at, "an extern class lists its default interface and nothing else");
    checkDefaultInterface(type);
  }

  void checkDefaultInterface(const ClassType &type) {
    if (!type.interfaces.empty())
      checkSignature(type, type.interfaces[0].at,
                     "comes back to itself through its default interface");
  }

  const Model &model_;
  Diagnostics &diagnostics_;
  Signatures signatures_;
};

} // namespace

void check(const Model &model, Diagnostics &diagnostics) { Checker(model, diagnostics).run(); }

} // namespace bridgegen
