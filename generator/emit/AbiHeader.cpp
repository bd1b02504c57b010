#include "generator/emit/Emit.h"

#include "generator/emit/Parts.h"
#include "generator/project/AbiFunction.h"

namespace bridgegen {

namespace {

auto parameterList(const std::vector<AbiParameter> &parameters) {
  return separated(parameters, ", ", [](Writer &writer, const AbiParameter &parameter) {
    writer.write("%%", parameter.type, parameter.name);
  });
}

class AbiHeader {
public:
  explicit AbiHeader(const Unit &unit) : unit_(unit) {}

  std::string text() {
    writeBanner(writer_, unit_);
    {
      const IncludeGuard guard(writer_, unit_, "ABI_H");
      writeIncludes();
      writer_.append("\nWRT_EXTERN_C_BEGIN\n");
      writeCDeclarations();
      for (const InterfaceType *interface : unit_.interfaces) {
        writer_.write("\n/// %\nstatic const GUID k%IID = %;\n", interface->name,
                      interface->cName(), interface->iid.initializer());
        if (interface->hasMembers())
          writeTable(*interface);
      }
      writer_.append("\nWRT_EXTERN_C_END\n\n#if defined(__cplusplus)\n\n#include <WRTAbi.h>\n\n"
                     "namespace wrt::abi {\n\n");
      writeCxxDeclarations();
      for (const InterfaceType *interface : unit_.interfaces)
        writeInterface(*interface);
      for (const DelegateType *delegate : unit_.delegates)
        writeDelegate(*delegate);
      writer_.append("} // namespace wrt::abi\n\n#endif\n");
    }
    return writer_.text();
  }

private:
  void writeIncludes() {
    Units units{&unit_};
    for (const Type *type : namedTypes(unit_)) {
      if (type->kind == Kind::Struct)
        units.insert(type->unit);
    }
    writer_.append("#include <WRTUnknown.h>\n");
    writeTypesIncludes(writer_, units);
  }

  /// The names of `interfaces`, of others than this unit's own.
  std::set<const InterfaceType *> foreignInterfaces() {
    std::set<const InterfaceType *> foreign;
    for (const Type *type : namedTypes(unit_)) {
      const InterfaceType *interface = crossingInterface(*type);
      if (interface && interface->unit != &unit_)
        foreign.insert(interface);
    }
    return foreign;
  }

  void writeCDeclarations() {
    std::set<std::string> names;
    for (const InterfaceType *interface : foreignInterfaces())
      names.insert(interface->cName());
    for (const std::string &name : names)
      writer_.write("typedef struct % %;\n", name, name);
  }

  void writeTable(const InterfaceType &interface) {
    const std::string name = interface.cName();
    writer_.write("typedef struct %Vtbl {\n"
                  "  HRESULT(WRT_ABI *QueryInterface)(% *self, const GUID *iid, void **result);\n"
                  "  uint32_t(WRT_ABI *AddRef)(% *self);\n"
                  "  uint32_t(WRT_ABI *Release)(% *self);\n"
                  "  HRESULT(WRT_ABI *GetIids)(% *self, uint32_t *count, GUID **iids);\n"
                  "  HRESULT(WRT_ABI *GetRuntimeClassName)(% *self, HSTRING *name);\n"
                  "  HRESULT(WRT_ABI *GetTrustLevel)(% *self, int32_t *level);\n",
                  name, name, name, name, name, name, name);
    for (const Member &member : interface.members) {
      if (member.kind == MemberKind::Reserved) {
        writer_.write("  void *%;\n", member.functionName());
        continue;
      }
      const auto parameters = abiParameters(member, AbiLanguage::C);
      writer_.write("  HRESULT(WRT_ABI *%)(% *self%%);\n", member.functionName(), name,
                    parameters.empty() ? "" : ", ", parameterList(parameters));
    }
    writer_.write("} %Vtbl;\n", name);
  }

  void writeCxxDeclarations() {
    std::set<std::string> names;
    for (const InterfaceType *interface : foreignInterfaces())
      names.insert(interface->scopeName());
    for (const InterfaceType *interface : unit_.interfaces)
      names.insert(interface->scopeName());
    for (const Type *type : namedTypes(unit_)) {
      if (type->isDelegate())
        names.insert(type->scopeName());
    }
    for (const Member *getter : delegateGetters())
      names.insert(getter->result->scopeName());
    for (const std::string &name : names)
      writer_.write("struct %;\n", name);
    writer_.append("\n");
  }

  /// They have no bridge method, and a slot all the same.
  std::vector<const Member *> delegateGetters() {
    std::vector<const Member *> getters;
    for (const InterfaceType *interface : unit_.interfaces) {
      for (const Member &member : interface->members) {
        if (member.kind == MemberKind::Getter && member.isDelegateProperty())
          getters.push_back(&member);
      }
    }
    return getters;
  }

  void writeHead(const Type &type, const Guid &iid, std::string_view base) {
    writer_.write("/// %\nstruct % : % {\n  static constexpr GUID kIid%;\n", type.name,
                  type.scopeName(), base, iid.initializer());
  }

  /// Interfaces are never destroyed through a pointer, and a virtual destructor would take slots.
  void writeTail(const Type &type) {
    writer_.write("\nprotected:\n  ~%() = default;\n};\n\n", type.scopeName());
  }

  void writeInterface(const InterfaceType &interface) {
    writeHead(interface, interface.iid, "IInspectable");
    if (!interface.members.empty())
      writer_.append("\n");
    for (const Member &member : interface.members)
      writer_.write("  virtual HRESULT WRT_ABI %(%) = 0;\n", member.functionName(),
                    parameterList(abiParameters(member, AbiLanguage::Cxx)));
    writeTail(interface);
  }

  void writeDelegate(const DelegateType &delegate) {
    writeHead(delegate, delegate.iid, "IUnknown");
    writer_.write("\n  virtual HRESULT WRT_ABI Invoke(%) = 0;\n",
                  parameterList(abiParameters(delegate, AbiLanguage::Cxx)));
    writeTail(delegate);
  }

  const Unit &unit_;
  Writer writer_;
};

} // namespace

std::string emitAbiHeader(const Unit &unit, const Input &) { return AbiHeader(unit).text(); }

} // namespace bridgegen
