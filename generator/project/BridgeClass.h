#ifndef WRT_GENERATOR_BRIDGE_CLASS_H
#define WRT_GENERATOR_BRIDGE_CLASS_H

#include "generator/model/Model.h"
#include "generator/project/Method.h"

namespace bridgegen {

/// A method that a bridge class implements.
struct BridgeMethod {
  enum class What { Member, Accessor, Activation };

  What what;
  Method method;
  const InterfaceType *interface = nullptr; ///< null for the activation
  const Member *member = nullptr;           ///< null but for members
};

/// An Objective-C class to be generated: the shape of each of the four kinds is decided here.
struct BridgeClass {
  std::string name;
  const char *kind;       ///< `interface`, `proxy-interface`, `class`, `proxy-class` or `completed`
  const char *superclass; ///< one of the core classes
  const Type *type = nullptr;
  std::vector<const InterfaceType *> protocols;
  std::vector<BridgeMethod> methods; ///< class methods behind instance methods
  std::string category; ///< of the add-on that gives these methods to the product's class
};

BridgeClass bridgeClassOf(const InterfaceType &interface);
BridgeClass bridgeClassOf(const ClassType &type);

/// The classes of a unit: interface bridges, then runtime-class bridges.
std::vector<BridgeClass> bridgeClassesOf(const Unit &unit);

/// The methods of the interface's protocol: bridged members in the table's order, then the
/// accessor.
std::vector<BridgeMethod> protocolMethods(const InterfaceType &interface);

} // namespace bridgegen

#endif
