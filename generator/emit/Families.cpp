#include "generator/emit/Emit.h"

#include "generator/emit/Outputs.h"
#include "generator/emit/Parts.h"
#include "generator/project/AbiFunction.h"
#include "generator/project/ComponentType.h"

namespace bridgegen {

namespace {

class FamiliesHeader {
public:
  explicit FamiliesHeader(const Input &input) : input_(input) {
    std::map<std::string, const Type *> known;
    for (const auto &[name, type] : input.model.types()) {
      if (!type->isInstance || type->isOpen)
        continue;
      if (!type->isKnown)
        instances_.emplace(componentInterface(*type), type.get());
      for (const Type *argument : asInstance(*type).arguments) {
        if (hasComponentType(*argument))
          (type->isKnown ? known : arguments_).emplace(argument->name, argument);
      }
    }
    for (const auto &[name, type] : known)
      arguments_.erase(name);
    for (const Type *family : input.model.families()) {
      if (!family->unit->isKnown)
        families_.push_back(family);
    }
  }

  std::string text() {
    const Target &target = input_.model.target();
    const std::string guard =
        target.isAddOn() ? macroPart(target.identifier()) + "_FAMILIES_H" : "WRT_FAMILIES_H";
    writer_.write("// Made by bridgegen.\n#ifndef %\n#define %\n\n", guard, guard);
    if (target.isAddOn())
      writer_.append("#include <abi/WRTFamilies.h>\n\n");
    else if (!input_.componentHeader.empty())
      writer_.write("#include \"%\"\n\n", input_.componentHeader);
    Units units;
    for (const auto &[name, type] : arguments_) {
      if (type->kind == Kind::Struct)
        units.insert(type->unit);
    }
    writer_.append("#include <WRTUnknown.h>\n");
    writeTypesIncludes(writer_, units);
    for (const auto &[name, type] : input_.model.types()) {
      if (type->kind == Kind::Enum && asEnum(*type).isExtern && !type->unit->isKnown)
        writeEnum(writer_, asEnum(*type));
    }
    writer_.append("\nnamespace wrt::abi {\n\n");
    declarePlainInterfaces();
    writer_.append("\n} // namespace wrt::abi\n\nnamespace wrt::implement {\n");
    declareFamilies();
    writeArguments();
    writeIdentifiers();
    for (const Type *family : families_)
      writeFamily(*family);
    writer_.append("\n} // namespace wrt::implement\n\n#endif\n");
    return writer_.text();
  }

private:
  /// What families and their arguments name of the other headers.
  void declarePlainInterfaces() {
    std::set<std::string> names;
    const auto add = [&](const Type *type) {
      if (!type)
        return;
      const Type *crossing = type->isDelegate() ? type : crossingInterface(*type);
      if (crossing && !crossing->isInstance)
        names.insert(crossing->scopeName());
    };
    for (const auto &[name, type] : instances_) {
      for (const Type *argument : asInstance(*type).arguments)
        add(argument);
    }
    for (const Type *family : families_) {
      if (family->isDelegate()) {
        for (const Type *type : namedTypes(asDelegate(*family)))
          add(type);
        continue;
      }
      for (const Member &member : asInterface(*family).members) {
        add(member.result);
        for (const Parameter &parameter : member.parameters)
          add(parameter.type);
      }
    }
    for (const std::string &name : names)
      writer_.write("struct %;\n", name);
  }

  /// One component may see several add-ons, and more than one of them may list what the product's
  /// types alone make up.
  template <class Write>
  void writeOnce(const std::string &name, Write &&write) {
    const bool isShared = input_.model.target().isAddOn();
    if (isShared)
      writer_.write("\n#ifndef %\n#define %\n", name, name);
    write();
    if (isShared)
      writer_.append("#endif\n");
  }

  void writeArguments() {
    const auto write = [&](bool isBuiltIn) {
      for (const auto &[name, type] : arguments_) {
        if ((type->unit == nullptr) != isBuiltIn)
          continue;
        writeOnce("WRT_ARGUMENT_" + macroPart(componentType(*type)), [&, type = type] {
          writer_.write("\n/// `%`\nstruct % : % {\n"
                        "  static constexpr std::u16string_view kName = u\"%\";\n};\n",
                        type->name, isBuiltIn ? componentType(*type) : type->scopeName(),
                        baseOf(*type), type->name);
        });
      }
    };
    write(true);
    writer_.append("\nnamespace types {\n");
    write(false);
    writer_.append("\n} // namespace types\n");
  }

  static std::string baseOf(const Type &type) {
    if (type.isString())
      return "Strings";
    if (!type.isReferenceType())
      return "Value<" + abiSpelling(type, AbiLanguage::Component) + ">";
    const InterfaceType *crossing = crossingInterface(type);
    return "Objects<" + (crossing ? componentInterface(*crossing) : "abi::IInspectable") + ">";
  }

  void writeHead(const Type &family) {
    writer_.write("template <%>\nstruct %",
                  separated(asInstance(family).arguments, ", ",
                            [](Writer &writer, const Type *parameter) {
                              writer.write("class %", componentType(*parameter));
                            }),
                  family.simpleName());
  }

  void declareFamilies() {
    for (const Type *family : families_) {
      writer_.append("\n");
      writeHead(*family);
      writer_.append(";\n");
    }
  }

  void writeIdentifiers() {
    writer_.append("\n");
    if (!input_.model.target().isAddOn())
      writer_.append("/// The identifier of each instance that the declarations know.\n"
                     "template <class Instance>\ninline constexpr GUID kIdentifier = [] {\n"
                     "  static_assert(sizeof(Instance) == 0,\n"
                     "                \"no declaration names this instance; list it as 'extern' in "
                     "a '.idl' file\");\n"
                     "  return GUID{};\n}();\n");
    for (const auto &[name, type] : instances_) {
      const Guid &iid = type->isDelegate() ? asDelegate(*type).iid : asInterface(*type).iid;
      writeOnce("WRT_IDENTIFIER_" + macroPart(name), [&, name = name] {
        writer_.write("template <>\ninline constexpr GUID kIdentifier<%>%;\n", name,
                      iid.initializer());
      });
    }
  }

  void writeFamily(const Type &family) {
    writer_.append("\n");
    writeHead(family);
    writer_.write(" : abi::% {\n  static constexpr GUID kIid = kIdentifier<%>;\n",
                  family.isDelegate() ? "IUnknown" : "IInspectable", componentInterface(family));
    if (family.isDelegate()) {
      writeFunction("Invoke", abiParameters(asDelegate(family), AbiLanguage::Component));
    } else {
      for (const Member &member : asInterface(family).members)
        writeFunction(member.functionName(), abiParameters(member, AbiLanguage::Component));
    }
    writer_.write("\nprotected:\n  ~%() = default;\n};\n", family.simpleName());
  }

  void writeFunction(const std::string &name, const std::vector<AbiParameter> &parameters) {
    writer_.write("  virtual HRESULT WRT_ABI %(%) = 0;\n", name,
                  separated(parameters, ", ", [](Writer &writer, const AbiParameter &parameter) {
                    writer.write("%%", parameter.type, parameter.name);
                  }));
  }

  const Input &input_;
  Writer writer_;
  std::vector<const Type *> families_;
  std::map<std::string, const Type *> instances_; ///< by their names in C++
  std::map<std::string, const Type *> arguments_; ///< of the instances, without interfaces
};

} // namespace

std::string emitFamilies(const Input &input) { return FamiliesHeader(input).text(); }

} // namespace bridgegen
