#include "generator/emit/Emit.h"
#include "generator/model/Signature.h"
#include "generator/output/Writer.h"
#include "generator/project/ObjcType.h"

#include <set>

namespace bridgegen {

namespace {

constexpr const char *kCollections = "Windows.Foundation.Collections.";

/// Calls `visit` with every bridged instance of a generic interface.
template <class Visit>
void forEachInstance(const Model &model, Visit visit) {
  for (const Unit *unit : model.ownUnits()) {
    for (const InterfaceType *interface : unit->interfaces) {
      if (interface->instance && interface->isBridged())
        visit(*interface, *interface->instance);
    }
  }
}

std::string resultSpelling(const Type &type) {
  return type.isReferenceType() || type.isString() ? objcType(type).spelling : valueSpelling(type);
}

/// A macro that calls another with each line's arguments.
void writeList(Writer &writer, const char *comment, const char *name,
               const std::vector<std::string> &lines) {
  writer.write("\n/// %\n#define %(X)", comment, name);
  for (const std::string &line : lines)
    writer.write(" \\\n  X(%)", line);
  writer.append("\n");
}

/// The rows of `support/collections.inc`.
class CollectionRows {
public:
  explicit CollectionRows(const Model &model) {
    for (const auto &[name, type] : model.types()) {
      if (type->kind == Kind::Interface && asInterface(*type).instance)
        families_.emplace(asInterface(*type).instance->familyName,
                          asInterface(*type).instance->piid);
    }
  }

  void write(Writer &writer, const InterfaceType &interface, const Instance &instance) const {
    const std::string &family = instance.familyName;
    if (!family.starts_with(kCollections))
      return;
    const std::string name = family.substr(std::string_view(kCollections).size());
    static const std::set<std::string> kinds{"IVector", "IVectorView", "IIterable", "IMap",
                                             "IMapView"};
    if (!kinds.contains(name))
      return;
    const bool isMap = instance.arguments.size() == 2;
    const InterfaceType *listedPair = isMap ? nullptr : pairOf(*instance.arguments[0]);
    const auto &arguments = listedPair ? listedPair->instance->arguments : instance.arguments;
    // The pairs of a map need not be among the types.
    InterfaceType pair("", "");
    pair.instance = instanceOf("IKeyValuePair", arguments);
    const bool hasPairs = isMap || listedPair;
    const std::vector<const Type *> element{hasPairs ? &pair : instance.arguments[0]};
    writer.write("{\"%\", Family::%, %, %, %, %, %,\n %,\n %},\n", interface.bridgeClass(),
                 name.substr(1), interface.iid.initializer(), identifier("IIterable", element),
                 identifier("IIterator", element),
                 isMap ? identifier("IMapView", arguments) : identifier("IVectorView", element),
                 hasPairs ? identifier("IKeyValuePair", arguments) : "{}",
                 hasPairs ? elementText(*arguments[0]) : "{ElementKind::None, nullptr, {}}",
                 elementText(*arguments.back()));
  }

private:
  static const InterfaceType *pairOf(const Type &type) {
    if (type.kind != Kind::Interface || !asInterface(type).instance ||
        !asInterface(type).instance->familyName.ends_with(".IKeyValuePair"))
      return nullptr;
    return &asInterface(type);
  }

  Instance instanceOf(const std::string &family, const std::vector<const Type *> &arguments) const {
    const auto found = families_.find(kCollections + family);
    return found == families_.end() ? Instance{} : Instance{found->first, found->second, arguments};
  }

  /// The identifier of the family's instance for these arguments.
  std::string identifier(const std::string &family,
                         const std::vector<const Type *> &arguments) const {
    return Signatures().identifier(instanceOf(family, arguments)).initializer();
  }

  static std::string elementText(const Type &type) {
    if (type.isString())
      return "{ElementKind::String, nullptr, {}}";
    if (type.isReferenceType()) {
      const bool isBridged = type.kind == Kind::Class       ? asClass(type).isBridged()
                             : type.kind == Kind::Interface ? asInterface(type).isBridged()
                                                            : false;
      const InterfaceType *crossing = crossingInterface(type);
      return "{ElementKind::Object, \"" +
             (isBridged ? type.bridgeClass() : std::string("WRTIInspectableBridge")) + "\", " +
             (crossing ? crossing->iid.initializer() : std::string("kInspectable")) + "}";
    }
    if (type.scalar == &scalarNamed("Guid"))
      return "{ElementKind::Guid, nullptr, {}}";
    if (type.kind == Kind::Enum || type.scalar == &kInt32)
      return "{ElementKind::Int32, nullptr, {}}";
    return "{ElementKind::Other, nullptr, {}}";
  }

  std::map<std::string, Guid> families_;
};

} // namespace

std::string emitOperations(const Input &input) {
  std::vector<std::string> operations;
  std::vector<std::string> progressing;
  std::vector<std::string> unreadable;
  std::set<std::string> units;
  forEachInstance(input.model, [&](const InterfaceType &interface, const Instance &instance) {
    const bool hasProgress =
        instance.familyName == "Windows.Foundation.IAsyncOperationWithProgress";
    if (!hasProgress && instance.familyName != "Windows.Foundation.IAsyncOperation")
      return;
    units.insert(interface.unit->name);
    const std::string bridge = interface.bridgeClass();
    if (!interface.isFull()) {
      unreadable.push_back(bridge);
      return;
    }
    const std::string line = bridge + ", " + resultSpelling(*instance.arguments[0]);
    operations.push_back(line);
    if (hasProgress)
      progressing.push_back(bridge + ", " + resultSpelling(*instance.arguments[1]));
  });
  Writer writer;
  writer.append("// Made by bridgegen.\n#ifndef WRT_SUPPORT_OPERATIONS_H\n"
                "#define WRT_SUPPORT_OPERATIONS_H\n\n");
  for (const std::string &unit : units)
    writer.write("#import <WRTObjcBridge/%.h>\n", unit);
  writeList(writer, "Every operation whose result can be read, with the type of that.",
            "WRT_FOR_EACH_OPERATION", operations);
  writeList(writer, "Those that tell how far they are, with the type of what they tell.",
            "WRT_FOR_EACH_PROGRESSING_OPERATION", progressing);
  writeList(writer, "The operations of proxy classes, whose results cannot be read.",
            "WRT_FOR_EACH_UNREADABLE_OPERATION", unreadable);
  writer.append("\n#endif\n");
  return writer.text();
}

std::string emitCollections(const Input &input) {
  Writer writer;
  writer.append("// Made by bridgegen.\n");
  const CollectionRows rows(input.model);
  forEachInstance(input.model, [&](const InterfaceType &interface, const Instance &instance) {
    rows.write(writer, interface, instance);
  });
  return writer.text();
}

} // namespace bridgegen
