#include "generator/emit/Definitions.h"
#include "generator/emit/Emit.h"
#include "generator/emit/Outputs.h"
#include "generator/emit/Parts.h"
#include "generator/project/BridgeClass.h"
#include "generator/project/Shape.h"

namespace bridgegen {

namespace {

template <class T>
using ByBridgeName = std::map<std::string, const T *>;

/// The product does not export its accessor functions and makers of delegates, so an add-on has
/// those that its members need for itself.
class ProductParts {
public:
  explicit ProductParts(const Model &model) {
    for (const Unit *unit : model.ownUnits()) {
      for (const InterfaceType *interface : unit->interfaces)
        addMembers(*interface);
      for (const BridgeClass &bridge : bridgeClassesOf(*unit)) {
        for (const InterfaceType *protocol : bridge.protocols)
          addMembers(*protocol);
      }
    }
  }

  std::string text() {
    Units members;
    MakerNeeds needs;
    for (const auto &[name, interface] : interfaces_)
      members.insert(interface->unit);
    for (const auto &[name, delegate] : delegates_)
      needs.add(*delegate);
    Writer writer;
    writer.append("// Made by bridgegen.\n");
    for (const Unit *unit : members)
      writer.write("#import %\n", includeName(emitPublicHeader, *unit));
    writeTypesIncludes(writer, needs.types);
    writer.append("\n#include <WRTBridge.h>\n\n#include \"marshal/Accessor.h\"\n"
                  "#include \"marshal/Adapter.h\"\n");
    for (const Unit *unit : members)
      writer.write("#include %\n", includeName(emitMembersHeader, *unit));
    for (const Unit *unit : needs.platforms)
      writer.write("#include %\n", includeName(emitPlatformHeader, *unit));
    writer.append("\n");
    needs.classes.write(writer);
    // Their own unit's members header declares them, which is not needed for anything else.
    if (!delegates_.empty())
      writer.append("\nnamespace wrt::delegates {\n");
    for (const auto &[name, delegate] : delegates_)
      writer.write("void *%(id handler, Retained<> &adapter);\n", name);
    if (!delegates_.empty())
      writer.append("} // namespace wrt::delegates\n");
    writer.append("\nusing namespace wrt;\n\n");
    for (const auto &[name, interface] : interfaces_)
      writeAccessorFunction(writer, *interface);
    for (const auto &[name, delegate] : delegates_)
      writeMaker(writer, *delegate);
    return writer.text();
  }

private:
  /// What the constants of the interface's members name.
  void addMembers(const InterfaceType &interface) {
    addInterface(&interface);
    for (const Member &member : interface.members) {
      if (!member.isBridged())
        continue;
      for (const Fact &fact : shapeOf(member).facts()) {
        if (fact.kind == FactKind::Accessor)
          addInterface(crossingInterface(*fact.type));
        else if (fact.kind == FactKind::Maker)
          addDelegate(asDelegate(*fact.type));
      }
    }
  }

  void addInterface(const InterfaceType *interface) {
    if (interface && interface->unit->isKnown)
      interfaces_.emplace(interface->scopeName(), interface);
  }

  void addDelegate(const DelegateType &delegate) {
    if (delegate.returnsObject())
      addInterface(crossingInterface(*delegate.result));
    else if (delegate.unit->isKnown)
      delegates_.emplace(delegate.scopeName(), &delegate);
  }

  ByBridgeName<InterfaceType> interfaces_;
  ByBridgeName<DelegateType> delegates_;
};

} // namespace

std::string emitProductParts(const Input &input) { return ProductParts(input.model).text(); }

} // namespace bridgegen
