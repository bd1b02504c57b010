#include "generator/emit/Outputs.h"

#include "generator/emit/Parts.h"
#include "generator/project/AbiFunction.h"

namespace bridgegen {

namespace {

/// The types of a delegate's arguments as its factory knows them: pointers have lost their types.
std::string invokeSignature(const DelegateType &delegate) {
  std::string text;
  const auto add = [&](const std::string &type) { text += (text.empty() ? "" : ", ") + type; };
  for (const DelegateType::Argument &argument : delegate.arguments)
    add(argument.type->isReferenceType() ? "void *" : abiSpelling(*argument.type, AbiLanguage::C));
  if (delegate.result)
    add(delegate.returnsString() ? "HSTRING *" : "void **");
  return text;
}

/// The runtime classes that have an activation name: those made or asked for factories.
std::vector<const ClassType *> namedClasses(const Unit &unit) {
  std::vector<const ClassType *> named;
  for (const ClassType *type : unit.classes) {
    if (type->isFull())
      named.push_back(type);
  }
  return named;
}

} // namespace

std::string emitPlatformHeader(const Unit &unit, const Input &) {
  Writer writer;
  writeBanner(writer, unit);
  {
    const IncludeGuard guard(writer, unit, "PLATFORM_H");
    writer.append("#include <WRTObjcBridge/WRTTypes.h>\n#include <objc/objc.h>\n"
                  "#if !defined(__cplusplus)\n#include <uchar.h>\n#endif\n\nWRT_EXTERN_C_BEGIN\n");
    for (const ClassType *type : namedClasses(unit))
      writer.write("\n/// The activation name of `%`, null-terminated UTF-16.\n"
                   "extern const char16_t *const %;\n",
                   type->name, type->nameConstant());
    for (const DelegateType *delegate : unit.delegates)
      writer.write(
          "\n/// A new `%` (+1) with a reference of its own to `block`, which it calls with the "
          "raw arguments.\nvoid *%(id block);\n",
          delegate->name, delegate->factory());
    writer.append("\nWRT_EXTERN_C_END\n");
  }
  return writer.text();
}

std::string emitDelegateFactories(const Unit &unit, const Input &input) {
  Writer writer;
  writeBanner(writer, unit);
  Units types;
  for (const DelegateType *delegate : unit.delegates) {
    for (const Type *type : namedTypes(*delegate)) {
      if (type->kind == Kind::Struct)
        types.insert(type->unit);
    }
  }
  writer.write("#include %\n", includeName(emitPlatformHeader, unit));
  writeTypesIncludes(writer, types);
  if (unit.delegates.empty())
    return writer.text();
  if (!input.delegateHeader.empty())
    writer.write("\n#include \"%\"\n", input.delegateHeader);
  for (const DelegateType *delegate : unit.delegates)
    writer.write("\n/// %\nWRT_DLLEXPORT void *%(id block) {\n"
                 "  return wrt::makeDelegate<HRESULT(%)>(%, block);\n}\n",
                 delegate->name, delegate->factory(), invokeSignature(*delegate),
                 delegate->iid.initializer());
  return writer.text();
}

std::string emitClassNames(const Unit &unit, const Input &) {
  Writer writer;
  writeBanner(writer, unit);
  writer.write("#include %\n", includeName(emitPlatformHeader, unit));
  for (const ClassType *type : namedClasses(unit))
    // An add-on's are nobody else's.
    writer.write("\n%const char16_t *const % = u\"%\";\n",
                 unit.target.isAddOn() ? "" : "WRT_DLLEXPORT ", type->nameConstant(), type->name);
  return writer.text();
}

std::string emitBridgeExports(const Input &input) {
  std::set<std::string> lines;
  for (const Unit *unit : input.model.ownUnits()) {
    for (const ClassType *type : namedClasses(*unit))
      lines.insert(type->nameConstant() + " DATA\n");
    for (const DelegateType *delegate : unit->delegates)
      lines.insert(delegate->factory() + "\n");
  }
  std::string text;
  for (const std::string &line : lines)
    text += line;
  return text;
}

} // namespace bridgegen
