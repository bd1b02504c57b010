#include "generator/model/Check.h"

#include "generator/model/Signature.h"
#include "generator/project/Selector.h"

#include <set>

namespace bridgegen {

namespace {

class Checker {
public:
  Checker(const Model &model, Diagnostics &diagnostics)
      : model_(model), diagnostics_(diagnostics) {}

  void run() {
    for (const auto &unit : model_.units()) {
      for (const EnumType *type : unit->enums)
        checkName(*type);
      for (const StructType *type : unit->structs) {
        checkName(*type);
        checkSignature(*type, type->at, "contains itself");
      }
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
  /// Names of C structures and of Objective-C classes come from one name.
  void checkName(const Type &type) {
    const auto [other, isNew] = bridgeNames_.emplace(type.bridgeName, &type);
    if (!isNew)
      diagnostics_.error(type.at, "bridge name " + quoted(type.bridgeName) +
                                      " is already that of " + quoted(other->second->name));
  }

  void checkSignature(const Type &type, Position at, const std::string &problem) {
    if (!typeSignature(type))
      diagnostics_.error(at, quoted(type.name) + " " + problem);
  }

  void checkDelegate(const DelegateType &delegate) {
    checkName(delegate);
    for (const DelegateType::Argument &argument : delegate.arguments) {
      if (const std::string problem = crossingProblem(*argument.type); !problem.empty())
        diagnostics_.error(argument.at, problem);
      else if (argument.type->isDelegate())
        diagnostics_.error(argument.at, "a delegate cannot take another one");
    }
    if (!delegate.result)
      return;
    if (!delegate.returnsString() && !delegate.returnsObject())
      diagnostics_.error(delegate.at, "a delegate can return a string or an object, not " +
                                          quoted(delegate.result->name));
    else if (!delegate.arguments.empty())
      diagnostics_.error(delegate.arguments[0].at, "a delegate that returns something cannot take "
                                                   "anything");
    else if (const std::string problem = crossingProblem(*delegate.result); !problem.empty())
      diagnostics_.error(delegate.at, problem);
  }

  void checkInterface(const InterfaceType &interface) {
    checkName(interface);
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
      else if (parameter.type->isDelegate() && parameter.passing != Passing::In)
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
    checkName(type);
    selectors_.clear();
    for (const ClassType::Listed &listed : type.interfaces) {
      if (const std::string problem = listedProblem(type, listed); !problem.empty())
        diagnostics_.error(listed.at, problem);
      else
        checkSelectors(listed, '-');
    }
    for (const ClassType::Listed &listed : type.classSide) {
      if (type.isProxy())
        diagnostics_.error(listed.at, "a proxy class has no statics or factories, found " +
                                          quoted(listed->name));
      else if (listed->form != listed.form)
        diagnostics_.error(listed.at, quoted(listed->name) + " is no " +
                                          (listed.form == Form::Statics ? "'statics interface'"
                                                                        : "'factory interface'"));
      else
        checkSelectors(listed, '+');
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

  void checkSelectors(const ClassType::Listed &listed, char side) {
    for (const Member &member : listed->members) {
      if (!member.isBridged())
        continue;
      const auto [other, isNew] = selectors_.emplace(side + selector(member), &*listed);
      if (!isNew)
        diagnostics_.error(listed.at,
                           "selector " + quoted(selector(member)) + " of " + quoted(listed->name) +
                               " is already that of a member of " + quoted(other->second->name));
    }
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
  std::map<std::string, const Type *> bridgeNames_;
  std::map<std::string, const Type *> selectors_; ///< of the class being checked, with `-` or `+`
};

} // namespace

void check(const Model &model, Diagnostics &diagnostics) { Checker(model, diagnostics).run(); }

} // namespace bridgegen
