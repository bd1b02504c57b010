#include "generator/metadata/Comparison.h"

#include <algorithm>

namespace bridgegen::metadata {

namespace {

using What = Difference::What;

constexpr unsigned kFirstSlot = 6;

std::string functionName(const Method &method) {
  static constexpr const char *kPrefixes[] = {"", "get_", "put_", "add_", "remove_"};
  return kPrefixes[static_cast<size_t>(method.role)] + method.name;
}

/// The functions of a family's table in order.
struct FunctionNames {
  std::vector<std::string> names;

  void operator()(const syntax::Reserved &) { names.emplace_back(); }
  void operator()(const syntax::Method &method) { names.push_back(method.name.text); }
  void operator()(const syntax::Event &event) {
    names.push_back("add_" + event.name.text);
    names.push_back("remove_" + event.name.text);
  }
  void operator()(const syntax::Property &property) {
    for (const syntax::Accessor &accessor : property.accessors)
      names.push_back((accessor.isSetter ? "put_" : "get_") + property.name.text);
  }
};

class Comparison {
public:
  explicit Comparison(const Types &types) : types_(types) {}

  std::vector<Difference> run() {
    std::set<std::string> nameSpaces;
    for (const Definition &definition : types_.library().definitions()) {
      nameSpaces.insert(definition.nameSpace);
      definition_ = &definition;
      const std::string name = definition.fullName();
      if (const Type *known = types_.known().find(name))
        compare(*known);
      else if (const Family *family = types_.known().family(name))
        compare(*family);
    }
    for (const auto &[name, type] : types_.known().model().types()) {
      const size_t dot = name.rfind('.');
      if (!type->isInstance && !types_.library().find(name) &&
          nameSpaces.contains(dot == name.npos ? "" : name.substr(0, dot)))
        differences_.push_back({What::Lacks, name + ": not in the metadata", {}});
    }
    return std::move(differences_);
  }

private:
  void add(What what, const std::string &text) { add(what, text, definition_->place); }
  void add(What what, const std::string &text, const Place &place) {
    differences_.push_back({what, definition_->fullName() + ": " + text, place});
  }

  void compare(const Type &known) {
    using DefinitionKind = Definition::Kind;
    const DefinitionKind kind = definition_->kind;
    const bool isSame = (kind == DefinitionKind::Enumeration && known.kind == Kind::Enum) ||
                        (kind == DefinitionKind::Structure && known.kind == Kind::Struct) ||
                        (kind == DefinitionKind::Delegate && known.kind == Kind::Delegate) ||
                        (kind == DefinitionKind::Interface && known.kind == Kind::Interface) ||
                        (kind == DefinitionKind::Class && known.kind == Kind::Class);
    if (!isSame || !definition_->typeParameters.empty())
      add(What::Contradiction, "declared as a type of another kind");
    else if (known.kind == Kind::Enum)
      compareConstants(asEnum(known));
    else if (known.kind == Kind::Struct)
      compareFields(asStruct(known));
    else if (known.kind == Kind::Delegate)
      compareIdentifier(asDelegate(known).iid);
    else if (known.kind == Kind::Class)
      compareInterfaces(asClass(known));
    else {
      compareIdentifier(asInterface(known).iid);
      if (asInterface(known).hasMembers()) {
        std::vector<std::string> names;
        for (const bridgegen::Member &member : asInterface(known).members)
          names.push_back(member.kind == MemberKind::Reserved ? "" : member.functionName());
        compareSlots(names);
      }
    }
  }

  void compare(const Family &family) {
    if (family.typeParameters.size() != definition_->typeParameters.size() ||
        family.isDelegate != (definition_->kind == Definition::Kind::Delegate)) {
      add(What::Contradiction, "declared as a type of another kind");
      return;
    }
    compareIdentifier(family.iid);
    if (family.isDelegate)
      return;
    FunctionNames functions;
    for (const DeclaredMember &member : family.members)
      std::visit(functions, member.member);
    compareSlots(functions.names);
  }

  void compareIdentifier(const Guid &known) {
    if (definition_->iid != known)
      add(What::Contradiction,
          "identifier {" + definition_->iid->lower() + "}, declared as {" + known.lower() + "}");
  }

  void compareConstants(const EnumType &known) {
    if (known.isFlags != definition_->isFlags)
      add(What::Contradiction, known.isFlags ? "declared as flags" : "not declared as flags");
    std::map<std::string, int64_t> values;
    for (const Definition::Constant &constant : definition_->constants)
      values.emplace(constant.name, constant.value);
    for (const EnumType::Constant &constant : known.constants) {
      const auto found = values.find(constant.name);
      if (found == values.end()) {
        add(What::Lacks, constant.name);
        continue;
      }
      if (static_cast<uint32_t>(found->second) != static_cast<uint32_t>(constant.value))
        add(What::Contradiction, constant.name + " = " + std::to_string(found->second) +
                                     ", declared as " + std::to_string(constant.value));
      values.erase(found);
    }
    for (const auto &[name, value] : values)
      add(What::Besides, name);
  }

  void compareFields(const StructType &known) {
    std::string declared;
    std::string found;
    for (const StructType::Field &field : known.fields)
      declared += field.type->name + " " + field.name + "; ";
    for (const Definition::Field &field : definition_->fields)
      found += spelled(field.type) + " " + field.name + "; ";
    if (declared != found)
      add(What::Contradiction, "fields { " + found + "}, declared as { " + declared + "}");
  }

  /// The functions of a table; an empty name is a slot of which nothing is known.
  void compareSlots(const std::vector<std::string> &known) {
    const std::vector<Method> &methods = definition_->methods;
    std::set<std::string> declared(known.begin(), known.end());
    for (size_t slot = 0; slot < known.size(); ++slot) {
      if (known[slot].empty())
        continue;
      const auto method = std::find_if(methods.begin(), methods.end(), [&](const Method &each) {
        return functionName(each) == known[slot];
      });
      const auto at = static_cast<size_t>(method - methods.begin());
      if (method == methods.end())
        add(What::Lacks, known[slot]);
      else if (at != slot)
        add(What::OtherSlot,
            known[slot] + " has slot " + std::to_string(kFirstSlot + at) + ", declared at " +
                std::to_string(kFirstSlot + slot),
            method->place);
    }
    for (size_t slot = 0; slot < methods.size(); ++slot) {
      const std::string name = functionName(methods[slot]);
      if (!declared.contains(name) && !(slot < known.size() && known[slot].empty()))
        add(What::Besides, name, methods[slot].place);
    }
  }

  void compareInterfaces(const ClassType &known) {
    std::set<std::string> declared;
    for (const ClassType::Listed &listed : known.interfaces)
      declared.insert(listed->name);
    for (const ClassType::Listed &listed : known.classSide)
      declared.insert(listed->name);
    std::vector<std::string> found;
    for (const TypeName &interface : definition_->interfaces)
      found.push_back(spelled(interface));
    if (known.isFull()) {
      for (const Definition::ClassSide &side : definition_->classSide)
        found.push_back(side.interface);
    }
    if (!known.interfaces.empty() && !definition_->interfaces.empty() &&
        known.defaultInterface()->name != found[0])
      add(What::Contradiction,
          "default interface " + found[0] + ", declared as " + known.defaultInterface()->name);
    for (const std::string &name : found) {
      if (!declared.erase(name) && known.isBridged())
        add(What::Besides, name);
    }
    for (const std::string &name : declared)
      add(What::Lacks, name);
  }

  const Types &types_;
  std::vector<Difference> differences_;
  const Definition *definition_ = nullptr;
};

} // namespace

std::vector<Difference> compare(const Types &types) { return Comparison(types).run(); }

} // namespace bridgegen::metadata
