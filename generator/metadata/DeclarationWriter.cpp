#include "generator/metadata/DeclarationWriter.h"

#include "generator/metadata/MemberWriter.h"

#include <algorithm>

namespace bridgegen::metadata {

namespace {

using syntax::Form;

const char *word(Form form) {
  switch (form) {
  case Form::Full:
    return "full";
  case Form::Proxy:
    return "proxy";
  case Form::Extern:
    return "extern";
  case Form::Statics:
    return "statics";
  case Form::Factory:
    return "factory";
  }
  return "";
}

/// One file.
class NamespaceWriter {
public:
  NamespaceWriter(std::string nameSpace, const BridgeNames &bridgeNames)
      : nameSpace_(std::move(nameSpace)), bridgeNames_(bridgeNames) {
    if (!nameSpace_.empty())
      writer_.write("namespace %;\n", nameSpace_);
  }

  void write(const Selected &selected) {
    const Definition &definition = *selected.definition;
    writer_.append("\n");
    if (definition.deprecated)
      writeComment(writer_, "Deprecated. " + *definition.deprecated);
    switch (definition.kind) {
    case Definition::Kind::Enumeration:
      writeEnumeration(definition);
      break;
    case Definition::Kind::Structure:
      writeStructure(definition);
      break;
    case Definition::Kind::Delegate:
      writeDelegate(definition);
      break;
    case Definition::Kind::Interface:
      writeInterface(selected);
      break;
    case Definition::Kind::Class:
      writeClass(selected);
      break;
    }
  }

  void write(const std::vector<const SelectedInstance *> &instances, Form form) {
    std::vector<std::string> names;
    for (const SelectedInstance *instance : instances) {
      if (instance->form == form)
        names.push_back(shortName(instance->type, nameSpace_));
    }
    if (!names.empty())
      writer_.write("\n%;\n", listed(word(form), names));
  }

  const std::string &text() const { return writer_.text(); }

private:
  void writeEnumeration(const Definition &definition) {
    const auto scope = writer_.scope(
        (definition.isFlags ? "flags enum " : "enum ") + head(definition) + "\n{\n", "}\n");
    for (const Definition::Constant &constant : definition.constants)
      writer_.write("% = %,\n", constant.name, constant.value);
  }

  void writeStructure(const Definition &definition) {
    const auto scope = writer_.scope("struct " + head(definition) + "\n{\n", "}\n");
    for (const Definition::Field &field : definition.fields)
      writer_.write("% %;\n", shortName(field.type, nameSpace_), field.name);
  }

  void writeDelegate(const Definition &definition) {
    const Method &invoke = definition.methods[0];
    std::vector<std::string> fields;
    for (const Parameter &parameter : invoke.parameters)
      fields.push_back(shortName(parameter.type, nameSpace_) + " " + parameter.name);
    const std::string result =
        invoke.result ? shortName(*invoke.result, nameSpace_) + " " : std::string();
    writer_.write("delegate %%\n    %;\n", result, head(definition), enclosed("(", fields));
  }

  /// Name, type parameters, bridge name and identifier.
  std::string head(const Definition &definition) const {
    std::string text = definition.name;
    for (const std::string &parameter : definition.typeParameters)
      text += (&parameter == definition.typeParameters.data() ? "<" : ", ") + parameter;
    if (!definition.typeParameters.empty())
      text += ">";
    text += bridgeName(definition);
    return definition.iid ? text + " {" + definition.iid->lower() + "}" : text;
  }

  std::string bridgeName(const Definition &definition) const {
    const auto found = bridgeNames_.find(definition.fullName());
    return found == bridgeNames_.end() ? "" : " as " + found->second;
  }

  void writeInterface(const Selected &selected) {
    const Definition &definition = *selected.definition;
    const bool isFamily = !definition.typeParameters.empty();
    const std::string start = (isFamily ? std::string() : word(selected.form) + std::string(" ")) +
                              "interface " + head(definition);
    if (selected.form == Form::Proxy || selected.form == Form::Extern) {
      writer_.write("%;\n", start);
      return;
    }
    const auto scope = writer_.scope(start + "\n{\n", "}\n");
    for (const DeclaredMember &member : selected.members)
      writeMember(writer_, member, nameSpace_);
  }

  void writeClass(const Selected &selected) {
    const Definition &definition = *selected.definition;
    if (definition.isActivatable && selected.form == Form::Full)
      writer_.append("[activatable]\n");
    std::vector<std::string> interfaces;
    for (const TypeName &interface : selected.interfaces) {
      interfaces.push_back(shortName(interface, nameSpace_));
      if (selected.form == Form::Extern)
        break;
    }
    std::string text = word(selected.form) + std::string(" class ") + head(definition);
    if (!interfaces.empty())
      text = listed(text + " :", interfaces);
    if (selected.form == Form::Full) {
      const std::vector<Definition::ClassSide> &sides = definition.classSide;
      for (auto side = sides.begin(); side != sides.end();) {
        std::vector<std::string> names;
        const Form form = side->form;
        for (; side != sides.end() && side->form == form; ++side)
          names.push_back(shortName({{side->interface, {}}, {}}, nameSpace_));
        text += "\n    " + listed(word(form), names);
      }
    }
    writer_.write("%;\n", text);
  }

  std::string nameSpace_;
  const BridgeNames &bridgeNames_;
  Writer writer_{4}; // as declarations written by hand
};

/// The order of declarations in a file: values and delegates, then classes, each behind its
/// interfaces, then what is left.
std::vector<const Selected *> arranged(const std::vector<const Selected *> &types) {
  std::map<std::string, const Selected *> byName;
  for (const Selected *type : types)
    byName.emplace(type->definition->fullName(), type);
  std::vector<const Selected *> order;
  const auto put = [&](const std::string &name) {
    const auto found = byName.find(name);
    if (found == byName.end())
      return;
    order.push_back(found->second);
    byName.erase(found);
  };
  const auto putAll = [&](auto matches) {
    for (const Selected *type : types) {
      if (!matches(*type))
        continue;
      for (const TypeName &interface : type->definition->interfaces)
        put(interface.name.text);
      for (const Definition::ClassSide &side : type->definition->classSide)
        put(side.interface);
      put(type->definition->fullName());
    }
  };
  using Kind = Definition::Kind;
  for (const Kind kind : {Kind::Enumeration, Kind::Structure, Kind::Delegate})
    putAll([&](const Selected &type) { return type.definition->kind == kind; });
  for (const Form form : {Form::Full, Form::Proxy, Form::Extern})
    putAll([&](const Selected &type) {
      return type.definition->kind == Kind::Class && type.form == form;
    });
  putAll([](const Selected &) { return true; });
  return order;
}

} // namespace

OutputSet writeDeclarations(const Selection &selection, const Known &known,
                            const BridgeNames &bridgeNames) {
  struct Contents {
    std::vector<const Selected *> types;
    std::vector<const SelectedInstance *> instances;
  };
  std::map<std::string, Contents> files;
  for (const Selected &type : selection.types())
    files[type.definition->nameSpace].types.push_back(&type);
  for (const auto &[name, instance] : selection.instances())
    files[instance.nameSpace].instances.push_back(&instance);

  OutputSet outputs;
  for (const auto &[nameSpace, contents] : files) {
    NamespaceWriter writer(nameSpace, bridgeNames);
    for (const Selected *type : arranged(contents.types))
      writer.write(*type);
    writer.write(contents.instances, Form::Full);
    writer.write(contents.instances, Form::Proxy);
    const std::string unit = nameSpace.empty() ? "Global" : nameSpace;
    outputs.add(unit + (known.hasUnit(unit) ? ".Additions.idl" : ".idl"), writer.text());
  }
  return outputs;
}

} // namespace bridgegen::metadata
