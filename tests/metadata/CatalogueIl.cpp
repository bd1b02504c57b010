#include "tests/metadata/MetadataTool.h"

#include "generator/output/Writer.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

namespace bridgegen::test {

namespace {

std::string name(const std::string &text) { return "'" + text + "'"; }

std::string ilType(const Type &type) {
  static const std::map<std::string_view, const char *> kScalars{
      {"Boolean", "bool"},
      {"Char16", "char"},
      {"Single", "float32"},
      {"Double", "float64"},
      {"Guid", "valuetype [mscorlib]System.Guid"},
      {"HResult", "valuetype [Windows.Foundation]Windows.Foundation.HResult"},
      {"EventRegistrationToken",
       "valuetype [Windows.Foundation]Windows.Foundation.EventRegistrationToken"}};
  if (type.isInstance) {
    const Instance &instance =
        *(type.kind == Kind::Delegate ? asDelegate(type).instance : asInterface(type).instance);
    std::string arguments;
    for (const Type *argument : instance.arguments)
      arguments += (arguments.empty() ? "" : ",") + ilType(*argument);
    return "class [Windows.Foundation]" + instance.familyName + "`" +
           std::to_string(instance.arguments.size()) + "<" + arguments + ">";
  }
  if (type.scalar) {
    std::string integer(type.scalar->name);
    std::ranges::transform(integer, integer.begin(), ::tolower);
    const auto other = kScalars.find(type.scalar->name);
    return other == kScalars.end() ? integer : other->second;
  }
  if (type.kind == Kind::String || type.kind == Kind::Object)
    return type.kind == Kind::String ? "string" : "object";
  const bool isValue = type.kind == Kind::Enum || type.kind == Kind::Struct;
  return (isValue ? "valuetype " : "class ") + name(type.name);
}

/// Of a result, which there may be none of.
std::string ilType(const Type *type) { return type ? ilType(*type) : "void"; }

/// `arguments` as they stand in the attribute's value.
std::string custom(const std::string &attribute, const std::string &types,
                   const std::string &arguments) {
  std::ostringstream bytes;
  bytes << std::hex << std::uppercase << std::setfill('0');
  for (const char byte : std::string("\1\0", 2) + arguments + std::string(2, '\0'))
    bytes << ' ' << std::setw(2) << static_cast<unsigned>(static_cast<unsigned char>(byte));
  return ".custom instance void [Windows.Foundation]Windows.Foundation.Metadata." + attribute +
         "::.ctor(" + types + ") = (" + bytes.str() + " )\n";
}

/// A string or a type in an attribute's value; none here is longer than 127 bytes.
std::string counted(const std::string &text) { return static_cast<char>(text.size()) + text; }

/// The number 1 in an attribute's value: the version since which there is something.
const std::string kOne("\1\0\0\0", 4);

std::string guidAttribute(const Guid &guid) {
  std::string bytes;
  for (const size_t i : {3, 2, 1, 0, 5, 4, 7, 6, 8, 9, 10, 11, 12, 13, 14, 15})
    bytes += static_cast<char>(guid.bytes[i]);
  return custom("GuidAttribute",
                "uint32, uint16, uint16, uint8, uint8, uint8, uint8, uint8, uint8, uint8, uint8",
                bytes);
}

std::string ilParameter(const Parameter &parameter) {
  const std::string type = ilType(*parameter.type);
  const std::string behind = " " + name(parameter.name);
  const Passing &passing = *parameter.passing;
  if (passing.isReturn || passing.filled != syntax::Filled::Nowhere)
    throw std::runtime_error("metadata cannot say how '" + parameter.name + "' crosses");
  const std::string direction = passing.isOut || passing.isFill ? "[out] " : "[in] ";
  return direction + type + (passing.isArray ? "[]" : "") + (passing.isOut ? "&" : "") + behind;
}

class IlWriter {
public:
  std::string run(const Model &model) {
    writer_.append(".assembly extern mscorlib {}\n.assembly extern Windows.Foundation {}\n"
                   ".assembly Catalogue {}\n.module Catalogue.winmd\n");
    for (const auto &[name, type] : model.types()) {
      if (type->isInstance)
        continue;
      if (type->kind == Kind::Enum)
        write(asEnum(*type));
      else if (type->kind == Kind::Struct)
        write(asStruct(*type));
      else if (type->kind == Kind::Delegate)
        write(asDelegate(*type));
      else if (type->kind == Kind::Interface)
        write(asInterface(*type));
      else if (type->kind == Kind::Class)
        write(asClass(*type));
    }
    return writer_.text();
  }

private:
  Writer::Scope scope(const std::string &head) { return writer_.scope(head + "\n{\n", "}\n"); }
  Writer::Scope scope(const Type &type, const std::string &base,
                      const std::string &layout = "auto") {
    return scope(".class public " + layout + " ansi sealed " + name(type.name) +
                 " extends [mscorlib]System." + base);
  }

  void write(const EnumType &type) {
    const char *underlying = type.isFlags ? "uint32" : "int32";
    const auto body = scope(type, "Enum");
    writer_.write(".field private specialname rtspecialname % value__\n", underlying);
    for (const EnumType::Constant &constant : type.constants)
      writer_.write(".field public static literal valuetype % % = %(%)\n", name(type.name),
                    name(constant.name), underlying,
                    static_cast<int32_t>(static_cast<uint32_t>(constant.value)));
  }

  void write(const StructType &type) {
    const auto body = scope(type, "ValueType", "sequential");
    for (const StructType::Field &field : type.fields)
      writer_.write(".field public % %\n", ilType(*field.type), name(field.name));
  }

  void write(const DelegateType &type) {
    const auto body = scope(type, "MulticastDelegate");
    writer_.append(guidAttribute(type.iid));
    std::string arguments;
    for (const DelegateType::Argument &argument : type.arguments)
      arguments += (arguments.empty() ? "[in] " : ", [in] ") + ilType(*argument.type) + " " +
                   name(argument.name);
    writer_.write(".method private hidebysig specialname rtspecialname instance void "
                  ".ctor(object 'object', native int 'method') runtime managed {}\n"
                  ".method public hidebysig newslot specialname virtual instance % Invoke(%) "
                  "runtime managed {}\n",
                  ilType(type.result), arguments);
  }

  void write(const InterfaceType &type) {
    const auto body = scope(".class interface public abstract auto ansi " + name(type.name));
    writer_.append(guidAttribute(type.iid));
    std::map<std::string, std::vector<const Member *>> accessors;
    for (const Member &member : type.members) {
      writeMethod(member);
      if (member.kind != MemberKind::Method)
        accessors[member.name].push_back(&member);
    }
    for (const auto &[property, members] : accessors)
      writeAssociation(type, property, members);
  }

  void writeMethod(const Member &member) {
    std::string parameters;
    for (const Parameter &parameter : member.parameters)
      parameters += (parameters.empty() ? "" : ", ") + ilParameter(parameter);
    const std::string special = member.kind == MemberKind::Method ? "" : "specialname ";
    const auto body =
        scope(".method public hidebysig newslot " + special + "abstract virtual instance " +
              ilType(member.result) + " " +
              name(member.overloadedName.empty() ? member.functionName() : member.overloadedName) +
              "(" + parameters + ") cil managed");
    if (!member.overloadedName.empty())
      writer_.append(custom("OverloadAttribute", "string", counted(member.name)));
  }

  void writeAssociation(const InterfaceType &type, const std::string &property,
                        const std::vector<const Member *> &members) {
    const Member &first = *members[0];
    const bool isEvent =
        first.kind == MemberKind::EventAdd || first.kind == MemberKind::EventRemove;
    const std::string valueType =
        first.kind == MemberKind::Getter ? ilType(first.result) : ilType(*first.parameters[0].type);
    const auto body = scope((isEvent ? ".event " : ".property instance ") + valueType + " " +
                            name(property) + (isEvent ? "" : "()"));
    for (const Member *member : members) {
      static const std::map<MemberKind, const char *> kWords{
          {MemberKind::Getter, ".get"},
          {MemberKind::Setter, ".set"},
          {MemberKind::EventAdd, ".addon"},
          {MemberKind::EventRemove, ".removeon"}};
      writer_.write("% instance % %::%(%)\n", kWords.at(member->kind), ilType(member->result),
                    name(type.name), name(member->functionName()),
                    member->parameters.empty() ? "" : ilType(*member->parameters[0].type));
    }
  }

  void write(const ClassType &type) {
    std::string interfaces;
    for (const ClassType::Listed &listed : type.interfaces)
      interfaces += (interfaces.empty() ? " implements " : ", ") +
                    (listed->isInstance ? ilType(*listed) : name(listed->name));
    const auto body = scope(type, "Object" + interfaces);
    if (!type.interfaces.empty())
      writer_.append(custom("DefaultAttribute", "", ""));
    if (type.isActivatable)
      writer_.append(custom("ActivatableAttribute", "uint32", kOne));
    for (const ClassType::Listed &side : type.classSide)
      writer_.append(custom(side.form == Form::Statics ? "StaticAttribute" : "ActivatableAttribute",
                            "class [mscorlib]System.Type, uint32", counted(side->name) + kOne));
  }

  Writer writer_;
};

} // namespace

std::string catalogueIl(const Model &model) { return IlWriter().run(model); }

std::string selectionOf(const Model &model) {
  std::string types, proxies, names;
  const auto add = [](std::string &list, const std::string &name) {
    list += (list.empty() ? "" : ", ") + ("\"" + name + "\"");
  };
  for (const auto &[name, type] : model.types()) {
    const bool isForComponents = type->kind == Kind::Enum && asEnum(*type).isExtern;
    if (isForComponents || (type->kind == Kind::Delegate && type->isInstance))
      continue;
    const Form form = type->kind == Kind::Interface ? asInterface(*type).form
                      : type->kind == Kind::Class   ? asClass(*type).form
                                                    : Form::Full;
    if (form == Form::Full)
      add(types, name);
    else if (form == Form::Proxy && type->isInstance)
      add(proxies, name);
    if (!type->isInstance && type->bridgeName != type->simpleName())
      add(names, name + "=" + type->bridgeName);
  }
  return "type = [" + types + "]\nproxy = [" + proxies + "]\nas = [" + names + "]\n";
}

} // namespace bridgegen::test
