#include "tests/metadata/CatalogueIl.h"

#include "generator/output/Writer.h"

namespace bridgegen::test {

namespace {

constexpr const char *kAttributes = "[Windows.Foundation]Windows.Foundation.Metadata.";

std::string name(const std::string &text) { return "'" + text + "'"; }

std::string builtIn(const Type &type) {
  static const std::map<std::string_view, const char *> kScalars{
      {"Boolean", "bool"},
      {"UInt8", "uint8"},
      {"Int16", "int16"},
      {"UInt16", "uint16"},
      {"Int32", "int32"},
      {"UInt32", "uint32"},
      {"Int64", "int64"},
      {"UInt64", "uint64"},
      {"Char16", "char"},
      {"Single", "float32"},
      {"Double", "float64"},
      {"Guid", "valuetype [mscorlib]System.Guid"},
      {"HResult", "valuetype [Windows.Foundation]Windows.Foundation.HResult"},
      {"EventRegistrationToken",
       "valuetype [Windows.Foundation]Windows.Foundation.EventRegistrationToken"}};
  if (type.scalar)
    return kScalars.at(type.scalar->name);
  return type.kind == Kind::String ? "string" : "object";
}

std::string ilType(const Type &type);

std::string ilInstance(const Instance &instance) {
  std::string text = "[Windows.Foundation]" + instance.familyName + "`" +
                     std::to_string(instance.arguments.size());
  for (size_t i = 0; i < instance.arguments.size(); ++i)
    text += (i ? "," : "<") + ilType(*instance.arguments[i]);
  return text + ">";
}

const std::optional<Instance> &instanceOf(const Type &type) {
  return type.kind == Kind::Delegate ? asDelegate(type).instance : asInterface(type).instance;
}

std::string ilType(const Type &type) {
  if (type.isInstance)
    return "class " + ilInstance(*instanceOf(type));
  switch (type.kind) {
  case Kind::Enum:
  case Kind::Struct:
    return "valuetype " + name(type.name);
  case Kind::Delegate:
  case Kind::Interface:
  case Kind::Class:
    return "class " + name(type.name);
  case Kind::Scalar:
  case Kind::String:
  case Kind::Object:
    break;
  }
  return builtIn(type);
}

/// An interface in a list: an instance is a type, anything else a name.
std::string ilListed(const InterfaceType &interface) {
  return interface.isInstance ? ilType(interface) : name(interface.name);
}

std::string hexadecimal(std::string_view bytes) {
  std::string text;
  for (const char byte : bytes) {
    text += ' ';
    text += "0123456789ABCDEF"[static_cast<unsigned char>(byte) >> 4];
    text += "0123456789ABCDEF"[static_cast<unsigned char>(byte) & 15];
  }
  return text;
}

/// `arguments` as they stand in the attribute's value.
std::string custom(const std::string &attribute, const std::string &types,
                   const std::string &arguments) {
  using namespace std::string_literals;
  return ".custom instance void " + (kAttributes + attribute) + "::.ctor(" + types + ") = (" +
         hexadecimal("\1\0"s + arguments + "\0\0"s) + " )\n";
}

/// A string or a type in an attribute's value; none here is longer than 127 bytes.
std::string counted(const std::string &text) { return static_cast<char>(text.size()) + text; }

std::string littleEndian(uint32_t value) {
  std::string bytes;
  for (int shift = 0; shift < 32; shift += 8)
    bytes += static_cast<char>(value >> shift);
  return bytes;
}

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
      switch (type->kind) {
      case Kind::Enum:
        write(asEnum(*type));
        break;
      case Kind::Struct:
        write(asStruct(*type));
        break;
      case Kind::Delegate:
        write(asDelegate(*type));
        break;
      case Kind::Interface:
        write(asInterface(*type));
        break;
      case Kind::Class:
        write(asClass(*type));
        break;
      case Kind::Scalar:
      case Kind::String:
      case Kind::Object:
        break;
      }
    }
    return writer_.text();
  }

private:
  void write(const EnumType &type) {
    const char *underlying = type.isFlags ? "uint32" : "int32";
    const auto scope = writer_.scope(".class public auto ansi sealed " + name(type.name) +
                                         " extends [mscorlib]System.Enum\n{\n",
                                     "}\n");
    writer_.write(".field private specialname rtspecialname % value__\n", underlying);
    for (const EnumType::Constant &constant : type.constants)
      writer_.write(".field public static literal valuetype % % = %(%)\n", name(type.name),
                    name(constant.name), underlying,
                    static_cast<int32_t>(static_cast<uint32_t>(constant.value)));
  }

  void write(const StructType &type) {
    const auto scope = writer_.scope(".class public sequential ansi sealed " + name(type.name) +
                                         " extends [mscorlib]System.ValueType\n{\n",
                                     "}\n");
    for (const StructType::Field &field : type.fields)
      writer_.write(".field public % %\n", ilType(*field.type), name(field.name));
  }

  void write(const DelegateType &type) {
    const auto scope = writer_.scope(".class public auto ansi sealed " + name(type.name) +
                                         " extends [mscorlib]System.MulticastDelegate\n{\n",
                                     "}\n");
    writer_.append(guidAttribute(type.iid));
    std::string arguments;
    for (const DelegateType::Argument &argument : type.arguments)
      arguments += (arguments.empty() ? "[in] " : ", [in] ") + ilType(*argument.type) + " " +
                   name(argument.name);
    writer_.write(".method private hidebysig specialname rtspecialname instance void "
                  ".ctor(object 'object', native int 'method') runtime managed {}\n"
                  ".method public hidebysig newslot specialname virtual instance % Invoke(%) "
                  "runtime managed {}\n",
                  type.result ? ilType(*type.result) : "void", arguments);
  }

  void write(const InterfaceType &type) {
    const auto scope = writer_.scope(
        ".class interface public abstract auto ansi " + name(type.name) + "\n{\n", "}\n");
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

  static std::string resultOf(const Member &member) {
    return member.result ? ilType(*member.result) : "void";
  }

  static std::string ilName(const Member &member) {
    return member.overloadedName.empty() ? member.functionName() : member.overloadedName;
  }

  void writeMethod(const Member &member) {
    std::string parameters;
    for (const Parameter &parameter : member.parameters)
      parameters += (parameters.empty() ? "" : ", ") + ilParameter(parameter);
    const auto scope =
        writer_.scope(".method public hidebysig newslot " +
                          std::string(member.kind == MemberKind::Method ? "" : "specialname ") +
                          "abstract virtual instance " + resultOf(member) + " " +
                          name(ilName(member)) + "(" + parameters + ") cil managed\n{\n",
                      "}\n");
    if (!member.overloadedName.empty())
      writer_.append(custom("OverloadAttribute", "string", counted(member.name)));
  }

  void writeAssociation(const InterfaceType &type, const std::string &property,
                        const std::vector<const Member *> &members) {
    const Member &first = *members[0];
    const bool isEvent =
        first.kind == MemberKind::EventAdd || first.kind == MemberKind::EventRemove;
    const std::string valueType =
        first.kind == MemberKind::Getter ? resultOf(first) : ilType(*first.parameters[0].type);
    const auto scope = writer_.scope(
        isEvent ? ".event " + valueType + " " + name(property) + "\n{\n"
                : ".property instance " + valueType + " " + name(property) + "()\n{\n",
        "}\n");
    for (const Member *member : members) {
      static const std::map<MemberKind, const char *> kWords{
          {MemberKind::Getter, ".get"},
          {MemberKind::Setter, ".set"},
          {MemberKind::EventAdd, ".addon"},
          {MemberKind::EventRemove, ".removeon"}};
      writer_.write("% instance % %::%(%)\n", kWords.at(member->kind), resultOf(*member),
                    name(type.name), name(member->functionName()),
                    member->parameters.empty() ? "" : ilType(*member->parameters[0].type));
    }
  }

  void write(const ClassType &type) {
    std::string interfaces;
    for (const ClassType::Listed &listed : type.interfaces)
      interfaces += (interfaces.empty() ? " implements " : ", ") + ilListed(*listed);
    const auto scope = writer_.scope(".class public auto ansi sealed " + name(type.name) +
                                         " extends [mscorlib]System.Object" + interfaces + "\n{\n",
                                     "}\n");
    if (!type.interfaces.empty())
      writer_.append(custom("DefaultAttribute", "", ""));
    if (type.isActivatable)
      writer_.append(custom("ActivatableAttribute", "uint32", littleEndian(1)));
    for (const ClassType::Listed &side : type.classSide)
      writer_.append(custom(side.form == Form::Statics ? "StaticAttribute" : "ActivatableAttribute",
                            "class [mscorlib]System.Type, uint32",
                            counted(side->name) + littleEndian(1)));
  }

  Writer writer_;
};

} // namespace

std::string catalogueIl(const Model &model) { return IlWriter().run(model); }

std::string selectionOf(const Model &model) {
  std::string types;
  std::string proxies;
  std::string names;
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
