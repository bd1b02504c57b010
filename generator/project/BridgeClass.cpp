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

std::vector<BridgeClass> bridgeClassesOf(const Unit &unit) {
  std::vector<BridgeClass> bridges;
  for (const InterfaceType *interface : unit.interfaces) {
    if (interface->isBridged())
      bridges.push_back(bridgeClassOf(*interface));
  }
  for (const ClassType *type : unit.classes)
    bridges.push_back(bridgeClassOf(*type));
  return bridges;
}

} // namespace bridgegen
