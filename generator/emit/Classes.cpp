#include "generator/emit/Emit.h"

#include "generator/emit/MemberConstant.h"
#include "generator/emit/MethodText.h"
#include "generator/emit/Outputs.h"
#include "generator/emit/Parts.h"
#include "generator/project/BridgeClass.h"

#include <algorithm>

namespace bridgegen {

namespace {

/// `WRTTestClassBridge_Foo`, a member's constant that one class has for itself.
std::string ownConstant(const BridgeClass &bridge, const Member &member) {
  return bridge.name + "_" + member.functionName();
}

/// A delegate's argument as the adapter takes it.
std::string passedKind(const Type &type) {
  if (type.isString())
    return "PassedString";
  if (!type.isReferenceType())
    return "Passed<" + valueSpelling(type) + ">";
  const InterfaceType *interface = crossingInterface(type);
  return "PassedObject<" + (interface ? *interface : type).cName() + ", " + classReference(type) +
         ">";
}

class Classes {
public:
  explicit Classes(const Unit &unit) : unit_(unit), bridges_(bridgeClassesOf(unit)) {}

  std::string text() {
    writeBanner(writer_, unit_);
    writeIncludes();
    writer_.append("\n");
    writeClassReferences();
    writer_.append("\nusing namespace wrt;\n\n");
    for (const InterfaceType *interface : unit_.interfaces)
      writeAccessorFunction(*interface);
    for (const DelegateType *delegate : unit_.delegates)
      writeMaker(*delegate);
    writeOwnConstants();
    for (const BridgeClass &bridge : bridges_)
      writeClass(bridge);
    return writer_.text();
  }

private:
  void writeIncludes() {
    std::set<std::string> members{unit_.name};
    for (const BridgeClass &bridge : bridges_) {
      for (const BridgeMethod &method : bridge.methods) {
        if (method.interface)
          members.insert(method.interface->unit->name);
      }
    }
    // The adapters' signatures name the tables of the raw arguments.
    std::set<std::string> types;
    std::set<std::string> platforms{unit_.name};
    const auto addDelegate = [&](const DelegateType &delegate) {
      platforms.insert(delegate.unit->name);
      for (const Type *type : namedTypes(delegate)) {
        const Type *crossing = type->kind == Kind::Struct ? type : crossingInterface(*type);
        if (crossing)
          types.insert(crossing->unit->name);
      }
    };
    for (const DelegateType *delegate : unit_.delegates)
      addDelegate(*delegate);
    forEachOwnConstant([&](const BridgeClass &, const BridgeMethod &,
                           const DelegateType &delegate) { addDelegate(delegate); });

    writer_.write("#import %\n", includeName(emitPublicHeader, unit_.name));
    writeTypesIncludes(writer_, types);
    writer_.append("\n#include <WRTBridge.h>\n\n#include \"marshal/Accessor.h\"\n"
                   "#include \"marshal/Adapter.h\"\n#include \"marshal/Call.h\"\n");
    for (const std::string &unit : members)
      writer_.write("#include %\n", includeName(emitMembersHeader, unit));
    for (const std::string &unit : platforms)
      writer_.write("#include %\n", includeName(emitPlatformHeader, unit));
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

  /// The classes that the adapters make bridges of.
  void writeClassReferences() {
    std::set<std::string> names;
    for (const DelegateType *delegate : unit_.delegates) {
      for (const DelegateType::Argument &argument : delegate->arguments) {
        if (argument.type->kind == Kind::Class || argument.type->kind == Kind::Interface)
          names.insert(argument.type->bridgeClass());
      }
    }
    for (const std::string &name : names)
      writer_.write("WRT_CLASS_REFERENCE(%);\n", name);
  }

  /// A boxed value comes out of its factory as a bridge of the plain object type, which has no
  /// accessor for what it can be passed as; there the object itself is asked.
  void writeAccessorFunction(const InterfaceType &interface) {
    const std::string accessor = interface.accessorSelector();
    writer_.write("void *wrt::%::interface(id object, NSError **error) {\n", interface.bridgeName);
    if (interface.instance && interface.instance->familyName == "Windows.Foundation.IReference")
      writer_.write("  if (![object respondsToSelector:@selector(%)])\n"
                    "    return queryInterface(object, kIid, error);\n",
                    accessor);
    writer_.write("  return [object %error];\n}\n", accessor);
  }

  void writeMaker(const DelegateType &delegate) {
    if (delegate.returnsObject())
      return; // each class that needs it makes it for itself
    std::string arguments = delegate.factory();
    for (const DelegateType::Argument &argument : delegate.arguments)
      arguments += ", " + passedKind(*argument.type);
    writer_.write("\nvoid *wrt::delegates::%(id handler, Retained<> &adapter) {\n"
                  "  return %<%>(handler, adapter);\n}\n",
                  delegate.bridgeName,
                  delegate.returnsString() ? "makeStringDelegate" : "makeDelegate", arguments);
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
                                       method.interface->bridgeName + "::interface",
                                       "makeInterfaceDelegate<" + delegate.factory() + ", " +
                                           accessor + ", " + name + "_Site>"));
        });
  }

  void writeClass(const BridgeClass &bridge) {
    writer_.write("\n@implementation %\n", bridge.name);
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
                : method.interface->bridgeName + "::" + constantName(*method.member);
    for (const Method::Argument &argument : method.method.arguments)
      text += ", " + argument.name;
    return text + ", error)";
  }

  static std::string accessorBody(const BridgeClass &bridge, const InterfaceType &interface) {
    const std::string iid = interface.bridgeName + "::kIid, error))";
    const std::string cast = "return static_cast<" + interface.cName() + " *>(";
    if (interface.isClassSide())
      return cast + "activationFactory(" + asClass(*bridge.type).nameConstant() + ", " + iid;
    return cast + "queryInterface(self, " + iid;
  }

  const Unit &unit_;
  const std::vector<BridgeClass> bridges_;
  Writer writer_;
};

} // namespace

std::string emitClasses(const Unit &unit, const Input &) { return Classes(unit).text(); }

} // namespace bridgegen
