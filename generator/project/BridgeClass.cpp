#include "generator/project/BridgeClass.h"

namespace bridgegen {

namespace {

using What = BridgeMethod::What;

void append(std::vector<BridgeMethod> &methods, std::vector<BridgeMethod> more) {
  for (BridgeMethod &method : more)
    methods.push_back(std::move(method));
}

} // namespace

std::vector<BridgeMethod> protocolMethods(const InterfaceType &interface) {
  std::vector<BridgeMethod> methods;
  for (const Member &member : interface.members) {
    if (member.isBridged())
      methods.push_back({What::Member, methodOf(interface, member), &interface, &member});
  }
  methods.push_back({What::Accessor, accessorOf(interface), &interface, nullptr});
  return methods;
}

BridgeClass bridgeClassOf(const InterfaceType &interface) {
  BridgeClass bridge{interface.bridgeClass(),
                     interface.isFull() ? "interface" : "proxy-interface",
                     "WRTInterfaceProxy",
                     &interface,
                     {&interface},
                     {},
                     {}};
  bridge.methods = protocolMethods(interface);
  return bridge;
}

BridgeClass bridgeClassOf(const ClassType &type) {
  BridgeClass bridge{type.bridgeClass(),
                     type.isFull() ? "class" : "proxy-class",
                     type.isFull() ? "WRTInspectableBridge" : "WRTClassProxy",
                     &type,
                     {},
                     {},
                     {}};
  for (const ClassType::Listed &listed : type.interfaces) {
    bridge.protocols.push_back(listed.interface);
    append(bridge.methods, protocolMethods(*listed));
  }
  if (type.isFull())
    bridge.methods.push_back({What::Activation, activation(), nullptr, nullptr});
  for (const ClassType::Listed &listed : type.classSide) {
    bridge.protocols.push_back(listed.interface);
    append(bridge.methods, protocolMethods(*listed));
  }
  return bridge;
}

namespace {

/// The members of a completed proxy for one of the product's classes, which have its accessor.
BridgeClass completed(const InterfaceType &completion, const Type &type) {
  BridgeClass bridge{type.bridgeClass(), "completed", "", &completion, {}, {}, {}};
  bridge.methods = protocolMethods(completion);
  bridge.methods.pop_back();
  // Several interfaces of one class may be completed, each by a category.
  bridge.category = completion.unit->target.identifier() + "_" + completion.completes->bridgeName;
  return bridge;
}

} // namespace

std::vector<BridgeClass> bridgeClassesOf(const Unit &unit) {
  std::vector<BridgeClass> bridges;
  for (const InterfaceType *interface : unit.interfaces) {
    if (interface->completes) {
      bridges.push_back(completed(*interface, *interface->completes));
      for (const ClassType *type : interface->completedClasses)
        bridges.push_back(completed(*interface, *type));
    } else if (interface->isBridged())
      bridges.push_back(bridgeClassOf(*interface));
  }
  for (const ClassType *type : unit.classes)
    bridges.push_back(bridgeClassOf(*type));
  return bridges;
}

} // namespace bridgegen
