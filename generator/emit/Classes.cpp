#include "generator/emit/Emit.h"

#include "generator/emit/Definitions.h"
#include "generator/emit/MemberConstant.h"
#include "generator/emit/MethodText.h"
#include "generator/emit/Outputs.h"
#include "generator/emit/Parts.h"
#include "generator/project/BridgeClass.h"

namespace bridgegen {

namespace {

/// `WRTTestClassBridge_Foo`, a member's constant that one class has for itself.
std::string ownConstant(const BridgeClass &bridge, const Member &member) {
  return bridge.name + "_" + member.functionName();
}

class Classes {
public:
  explicit Classes(const Unit &unit) : unit_(unit), bridges_(bridgeClassesOf(unit)) {
    for (const DelegateType *delegate : unit.delegates)
      makerNeeds_.add(*delegate);
  }

  std::string text() {
    writeBanner(writer_, unit_);
    writeIncludes();
    writer_.append("\n");
    makerNeeds_.classes.write(writer_);
    writer_.append("\nusing namespace wrt;\n\n");
    for (const InterfaceType *interface : unit_.interfaces)
      writeAccessorFunction(writer_, *interface);
    for (const DelegateType *delegate : unit_.delegates)
      writeMaker(writer_, *delegate);
    writeOwnConstants();
    for (const BridgeClass &bridge : bridges_)
      writeClass(bridge);
    return writer_.text();
  }

private:
  void writeIncludes() {
    Units members{&unit_};
    for (const BridgeClass &bridge : bridges_) {
      for (const BridgeMethod &method : bridge.methods) {
        if (method.interface)
          members.insert(method.interface->unit);
      }
    }
    // Adapters that a class makes for itself name no classes: they take nothing.
    MakerNeeds needs = makerNeeds_;
    needs.platforms.insert(&unit_);
    forEachOwnConstant([&](const BridgeClass &, const BridgeMethod &,
                           const DelegateType &delegate) { needs.add(delegate); });

    writer_.write("#import %\n", includeName(emitPublicHeader, unit_));
    writeTypesIncludes(writer_, needs.types);
    writer_.append("\n#include <WRTBridge.h>\n\n#include \"marshal/Accessor.h\"\n"
                   "#include \"marshal/Adapter.h\"\n#include \"marshal/Call.h\"\n");
    for (const Unit *unit : members)
      writer_.write("#include %\n", includeName(emitMembersHeader, *unit));
    for (const Unit *unit : needs.platforms)
      writer_.write("#include %\n", includeName(emitPlatformHeader, *unit));
  }

  /// Visits the members whose constant each class has for itself.
  template <class Visit>
  void forEachOwnConstant(Visit visit) {
    for (const BridgeClass &bridge : bridges_) {
      for (const BridgeMethod &method : bridge.methods) {
        if (!method.member || !needsConstantPerClass(*method.member))
          continue;
        for (const Parameter &parameter : method.member->parameters) {
          if (parameter.type->isDelegate())
            visit(bridge, method, asDelegate(*parameter.type));
        }
      }
    }
  }

  void writeOwnConstants() {
    forEachOwnConstant(
        [&](const BridgeClass &bridge, const BridgeMethod &method, const DelegateType &delegate) {
          const std::string name = ownConstant(bridge, *method.member);
          const std::string accessor = accessorFunction(*delegate.result);
          const std::string result = crossingInterface(*delegate.result)->name;
          const char *dot = result.find('.') == result.npos ? "." : "";
          writer_.write("\nnamespace {\n"
                        "const AdapterSite %_Site{\"-[% %]_block_invoke\",\n"
                        "    @\"Failed to get delegate interface pointer for %%**\"};\n"
                        "constexpr %;\n} // namespace\n",
                        name, bridge.name, method.method.selector, dot, result,
                        memberConstant(*method.member, name,
                                       method.interface->scopeName() + "::interface",
                                       "makeInterfaceDelegate<" + delegate.factory() + ", " +
                                           accessor + ", " + name + "_Site>"));
        });
  }

  void writeClass(const BridgeClass &bridge) {
    writer_.write("\n@implementation %%\n", bridge.name,
                  bridge.category.empty() ? "" : " (" + bridge.category + ")");
    for (const BridgeMethod &method : bridge.methods)
      writeMethod(bridge, method);
    writer_.append("@end\n");
  }

  void writeMethod(const BridgeClass &bridge, const BridgeMethod &bridged) {
    writer_.write("% {\n  %;\n}\n", methodHead(bridged.method, Nullability::Hidden),
                  body(bridge, bridged));
  }

  std::string body(const BridgeClass &bridge, const BridgeMethod &method) {
    switch (method.what) {
    case BridgeMethod::What::Activation:
      return "return WRTActivateInstance(" + asClass(*bridge.type).nameConstant() + ")";
    case BridgeMethod::What::Accessor:
      return accessorBody(bridge, *method.interface);
    case BridgeMethod::What::Member:
      break;
    }
    std::string text = method.method.result.encoding == "v" ? "call(self, " : "return call(self, ";
    text += needsConstantPerClass(*method.member)
                ? ownConstant(bridge, *method.member)
                : method.interface->scopeName() + "::" + constantName(*method.member);
    for (const Method::Argument &argument : method.method.arguments)
      text += ", " + argument.name;
    return text + ", error)";
  }

  static std::string accessorBody(const BridgeClass &bridge, const InterfaceType &interface) {
    const std::string iid = interface.scopeName() + "::kIid, error))";
    const std::string cast = "return static_cast<" + interface.cName() + " *>(";
    if (interface.isClassSide())
      return cast + "activationFactory(" + asClass(*bridge.type).nameConstant() + ", " + iid;
    return cast + "queryInterface(self, " + iid;
  }

  const Unit &unit_;
  const std::vector<BridgeClass> bridges_;
  MakerNeeds makerNeeds_; ///< of the unit's delegates
  Writer writer_;
};

} // namespace

std::string emitClasses(const Unit &unit, const Input &) { return Classes(unit).text(); }

} // namespace bridgegen
