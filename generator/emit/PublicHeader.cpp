#include "generator/emit/Emit.h"

#include "generator/emit/Documentation.h"
#include "generator/emit/MethodText.h"
#include "generator/emit/Outputs.h"
#include "generator/emit/Parts.h"
#include "generator/project/BridgeClass.h"

#include <algorithm>

namespace bridgegen {

namespace {

/// What a caller must know of every member, at the top of every header that declares some.
constexpr const char *kNotice =
    "//\n"
    "// For every caller: a call that succeeds stores nil in the error variable, a call that "
    "fails\n"
    "// its error; where the object lacks the interface, nothing is called and the variable stays\n"
    "// as it was. The handle behind a string that a call gives is not released.\n";

/// Whether the unit's header declares something, and that not for tests of the library itself,
/// whose types belong to no namespace.
bool isForApplications(const Unit &unit) {
  const auto declares = [](const auto &types) {
    return std::ranges::any_of(
        types, [](const Type *type) { return type->name.find('.') != std::string::npos; });
  };
  return declares(unit.interfaces) || declares(unit.classes) || declares(unit.delegates) ||
         declares(unit.enums) || declares(unit.structs);
}

class PublicHeader {
public:
  PublicHeader(const Unit &unit, const Model &model) : unit_(unit), model_(model) {}

  std::string text() {
    writeBanner(writer_, unit_);
    writer_.append(kNotice);
    {
      const IncludeGuard guard(writer_, unit_, "H");
      writeIncludes();
      writer_.append("\n#pragma clang assume_nonnull begin\n");
      writeForwardDeclarations();
      writeBlocks();
      for (const InterfaceType *interface : unit_.interfaces) {
        if (!interface->completes)
          writeProtocol(*interface);
      }
      writeAdoptedIncludes();
      for (const BridgeClass &bridge : bridgeClassesOf(unit_))
        writeClass(bridge);
      writer_.append("\n#pragma clang assume_nonnull end\n");
      writeCompletingIncludes();
    }
    return writer_.text();
  }

private:
  void writeIncludes() {
    std::set<std::string> superclasses;
    for (const BridgeClass &bridge : bridgeClassesOf(unit_)) {
      if (bridge.category.empty())
        superclasses.insert(bridge.superclass);
    }
    superclasses.insert("WRTInspectableBridge"); // for the protocol
    for (const std::string &superclass : superclasses)
      writer_.write("#import <WRTObjcBridge/%.h>\n", superclass);

    Units types{&unit_};
    for (const Type *type : namedTypes(unit_)) {
      if (type->kind == Kind::Struct || type->kind == Kind::Enum)
        types.insert(type->unit);
    }
    writeTypesIncludes(writer_, types);
  }

  /// What the protocols and blocks name; the headers that declare it come last.
  void writeForwardDeclarations() {
    std::set<std::string> classes;
    std::set<std::string> protocols;
    for (const Type *type : namedTypes(unit_)) {
      if (type->kind == Kind::Class)
        classes.insert(type->bridgeClass());
      else if (type->isReferenceType())
        protocols.insert(type->bridgeClass());
    }
    if (!classes.empty() || !protocols.empty())
      writer_.append("\n");
    for (const std::string &name : classes)
      writer_.write("@class %;\n", name);
    for (const std::string &name : protocols)
      writer_.write("@protocol %;\n", name);
  }

  /// The blocks of the unit's delegates and of those that its members take. A delegate of another
  /// unit is named again here: the header over there may not have come so far yet.
  void writeBlocks() {
    std::map<std::string, const DelegateType *> delegates;
    const auto add = [&](const DelegateType &delegate) {
      delegates.emplace(delegate.cName(), &delegate);
    };
    for (const DelegateType *delegate : unit_.delegates)
      add(*delegate);
    for (const Type *type : namedTypes(unit_)) {
      if (type->isDelegate())
        add(asDelegate(*type));
    }
    if (delegates.empty())
      return;
    writer_.append("\n#pragma clang diagnostic push\n"
                   "#pragma clang diagnostic ignored \"-Wtypedef-redefinition\"\n");
    for (const auto &[name, delegate] : delegates)
      writer_.write("/// `%`\ntypedef HRESULT (^%)(%);\n", delegate->name, name,
                    blockParameters(*delegate));
    writer_.append("#pragma clang diagnostic pop\n");
  }

  void writeProtocol(const InterfaceType &interface) {
    writer_.write("\n/// %\n@protocol % <WRTIInspectableBridge>\n@required\n",
                  describeProtocol(interface, model_), interface.bridgeClass());
    for (const BridgeMethod &method : protocolMethods(interface))
      writeMethod(method);
    writer_.append("@end\n");
  }

  void writeMethod(const BridgeMethod &bridged) {
    const char *family = soundsLikeOwning(bridged.method.selector)
                             ? " __attribute__((objc_method_family(none)))"
                             : "";
    writer_.write("/// %\n%%;\n", describe(bridged), methodHead(bridged.method, Nullability::Shown),
                  family);
  }

  /// Classes need the protocols they adopt in full. These includes stand behind this unit's own
  /// protocols, since units adopt each other's.
  void writeAdoptedIncludes() {
    Units units;
    for (const ClassType *type : unit_.classes) {
      for (const InterfaceType *protocol : bridgeClassOf(*type).protocols) {
        if (protocol->unit != &unit_)
          units.insert(protocol->unit);
      }
    }
    for (const InterfaceType *interface : unit_.interfaces) {
      if (!interface->completes)
        continue;
      units.insert(interface->completes->unit);
      for (const ClassType *type : interface->completedClasses)
        units.insert(type->unit);
    }
    if (units.empty())
      return;
    writer_.append("\n#pragma clang assume_nonnull end\n\n");
    for (const Unit *unit : units)
      writer_.write("#import %\n", includeName(emitPublicHeader, *unit));
    writer_.append("\n#pragma clang assume_nonnull begin\n");
  }

  void writeClass(const BridgeClass &bridge) {
    if (!bridge.category.empty()) {
      writer_.write("\n/// The members of `%`.\n@interface % (%)\n", bridge.type->name, bridge.name,
                    bridge.category);
      for (const BridgeMethod &method : bridge.methods)
        writeMethod(method);
      return writer_.append("@end\n");
    }
    writer_.write("\n/// %\n%\n@interface % : %", describeClass(bridge, model_), exportMacro(unit_),
                  bridge.name, bridge.superclass);
    if (!bridge.protocols.empty())
      writeAdopted(bridge.protocols);
    writer_.append("\n@end\n");
  }

  /// The rest of what the members take and give, behind everything else because units name each
  /// other. The library's own units do without, so that a unit is compiled again only for its own
  /// sake.
  void writeCompletingIncludes() {
    std::set<std::string> headers;
    for (const Type *type : namedTypes(unit_)) {
      if (type->kind == Kind::Object)
        headers.insert("<WRTObjcBridge/WRTIInspectableBridge.h>");
      else if (type->isReferenceType() && type->unit != &unit_)
        headers.insert(includeName(emitPublicHeader, *type->unit));
    }
    if (headers.empty())
      return;
    writer_.append("\n#if !defined(WRT_BUILDING_BRIDGE)\n");
    for (const std::string &header : headers)
      writer_.write("#import %\n", header);
    writer_.append("#endif\n");
  }

  /// A protocol a line when there are several: a class is read from top to bottom.
  void writeAdopted(const std::vector<const InterfaceType *> &protocols) {
    writer_.append(protocols.size() == 1 ? " <" : " <\n    ");
    writer_.write(
        "%>", separated(protocols, ",\n    ", [](Writer &writer, const InterfaceType *protocol) {
          writer.append(protocol->bridgeClass());
        }));
  }

  const Unit &unit_;
  const Model &model_;
  Writer writer_;
};

} // namespace

std::string emitPublicHeader(const Unit &unit, const Input &input) {
  return PublicHeader(unit, input.model).text();
}

std::string emitUmbrella(const Input &input) {
  Writer writer;
  writer.append("// Made by bridgegen.\n");
  writer.append(kNotice);
  writer.append("#ifndef WRT_OBJC_BRIDGE_H\n#define WRT_OBJC_BRIDGE_H\n\n");
  for (const char *header : {"WRTClassProxy", "WRTConversions", "WRTErrors", "WRTHSTRINGBridge",
                             "WRTIInspectableBridge", "WRTInterfaceProxy", "WRTOwnership"})
    writer.write("#import <WRTObjcBridge/%.h>\n", header);
  writer.append("\n");
  for (const Unit *unit : input.model.ownUnits()) {
    if (isForApplications(*unit))
      writer.write("#import %\n", includeName(emitPublicHeader, *unit));
  }
  writer.append("\n#endif\n");
  return writer.text();
}

} // namespace bridgegen
