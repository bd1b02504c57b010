#include "generator/metadata/DefinitionReader.h"

#include "generator/metadata/Attributes.h"
#include "generator/metadata/Names.h"
#include "generator/metadata/SignatureReader.h"

#include <algorithm>
#include <utility>

namespace bridgegen::metadata {

namespace {

constexpr uint32_t kInterfaceFlag = 0x20;
constexpr uint32_t kWindowsRuntimeFlag = 0x4000;
constexpr uint32_t kLiteralFlag = 0x40;
constexpr uint32_t kStaticFlag = 0x10;
constexpr uint32_t kOutFlag = 0x2;

/// What belongs to a row and does not stand beside it: its key and its own row.
using Index = std::vector<std::pair<Row, uint32_t>>;

class Reader {
public:
  explicit Reader(const Tables &tables) : tables_(tables), attributes_(tables) {
    index(Table::InterfaceImpl, 0, interfaces_);
    index(Table::Constant, 1, constants_);
    index(Table::GenericParam, 2, parameters_);
    index(Table::MethodSemantics, 1, semantics_);
  }

  std::vector<Definition> run() {
    std::vector<Definition> definitions;
    for (uint32_t i = 1; i <= tables_.count(Table::TypeDef); ++i) {
      const Row row{Table::TypeDef, i};
      tables_.in(row, [&] {
        // The lists of all types are looked at, so that none overlaps another.
        tables_.range(row, 4);
        tables_.range(row, 5);
        if (tables_.number(row, 0) & kWindowsRuntimeFlag)
          read(row, definitions);
      });
    }
    return definitions;
  }

private:
  void index(Table table, unsigned column, Index &rows) {
    for (uint32_t i = 1; i <= tables_.count(table); ++i)
      tables_.in({table, i}, [&] { rows.emplace_back(tables_.target({table, i}, column), i); });
    std::sort(rows.begin(), rows.end());
  }

  template <class Visit>
  static void forEach(const Index &rows, Row key, Visit visit) {
    const auto first = std::lower_bound(rows.begin(), rows.end(), std::pair{key, 0U});
    for (auto row = first; row != rows.end() && row->first == key; ++row)
      visit(row->second);
  }

  void read(Row row, std::vector<Definition> &definitions) {
    Definition definition;
    definition.place = {&tables_, row};
    definition.nameSpace = tables_.string(row, 2);
    const std::string_view name = tables_.string(row, 1);
    definition.name = name.substr(0, name.find('`'));
    if (!isTypeWord(definition.name) ||
        (!definition.nameSpace.empty() && !isDotted(definition.nameSpace)))
      tables_.refuse(row, quotedName(definition.fullName()) + " is no name of a type");
    const std::string full = definition.fullName();
    if (full == "Windows.Foundation.HResult" || full == "Windows.Foundation.EventRegistrationToken")
      return;

    typeParameters(row, definition);
    if (const std::optional<Definition::Kind> kind = kindOf(row))
      definition.kind = *kind;
    else
      return;
    if (const Attribute *deprecated = attributes_.find(row, "DeprecatedAttribute"))
      definition.deprecated = deprecated->text(0) ? *deprecated->text(0) : "";
    identifier(row, definition);
    switch (definition.kind) {
    case Definition::Kind::Enumeration:
      constants(row, definition);
      break;
    case Definition::Kind::Structure:
      fields(row, definition);
      break;
    case Definition::Kind::Delegate:
    case Definition::Kind::Interface:
      methods(row, definition);
      break;
    case Definition::Kind::Class:
      classInterfaces(row, definition);
      classSide(row, definition);
      break;
    }
    definitions.push_back(std::move(definition));
  }

  static std::string quotedName(const std::string &name) { return "'" + name + "'"; }

  void typeParameters(Row row, Definition &definition) {
    forEach(parameters_, row, [&](uint32_t number) {
      const Row parameter{Table::GenericParam, number};
      tables_.in(parameter, [&] {
        if (tables_.number(parameter, 0) != definition.typeParameters.size())
          tables_.refuse(parameter, "type parameters out of order");
        definition.typeParameters.push_back(identifierAt(parameter, 3, "a type parameter"));
        if (!isTypeWord(definition.typeParameters.back()))
          tables_.refuse(parameter, "a type parameter that is a word of declarations");
      });
    });
  }

  /// What is not bridged has no kind: attributes and contracts.
  std::optional<Definition::Kind> kindOf(Row row) {
    if (tables_.number(row, 0) & kInterfaceFlag)
      return Definition::Kind::Interface;
    const Row base = tables_.target(row, 3);
    // A class may have a base that is an instance only of something broken.
    const std::string name = base ? typeName(tables_, base) : "";
    if (name == "System.Enum")
      return Definition::Kind::Enumeration;
    if (name == "System.MulticastDelegate")
      return Definition::Kind::Delegate;
    if (name == "System.Attribute" || attributes_.find(row, "ApiContractAttribute"))
      return std::nullopt;
    if (name == "System.ValueType")
      return Definition::Kind::Structure;
    if (name.empty() || (name.starts_with("System.") && name != "System.Object"))
      tables_.refuse(row, "a type whose base is " + (base ? quotedName(name) : "missing"));
    return Definition::Kind::Class;
  }

  void identifier(Row row, Definition &definition) {
    const bool isNeeded = definition.kind == Definition::Kind::Interface ||
                          definition.kind == Definition::Kind::Delegate;
    const Attribute *guid = attributes_.find(row, "GuidAttribute");
    if (!isNeeded)
      return;
    if (!guid || guid->arguments.size() != 11)
      tables_.refuse(row, quotedName(definition.fullName()) + " has no identifier (GuidAttribute)");
    Guid &iid = definition.iid.emplace();
    size_t at = 0;
    for (size_t argument = 0; argument < 11; ++argument) {
      const size_t width = argument == 0 ? 4 : argument < 3 ? 2 : 1;
      for (size_t byte = width; byte > 0; --byte)
        iid.bytes[at++] = static_cast<uint8_t>(guid->number(argument) >> 8 * (byte - 1));
    }
  }

  std::string identifierAt(Row row, unsigned column, const char *what) {
    const std::string name(tables_.string(row, column));
    if (!isIdentifier(name))
      tables_.refuse(row, quotedName(name) + " is no name of " + what);
    return name;
  }

  template <class Visit>
  void forEachField(Row type, Visit visit) {
    const auto [first, end] = tables_.range(type, 4);
    for (uint32_t i = first; i < end; ++i)
      tables_.in({Table::Field, i}, [&] { visit(Row{Table::Field, i}); });
  }

  void constants(Row type, Definition &definition) {
    forEachField(type, [&](Row field) {
      if (!(tables_.number(field, 0) & kLiteralFlag)) {
        const std::string underlying =
            SignatureReader(tables_, {}).field(tables_.blob(field, 2)).name.text;
        if (underlying != "Int32" && underlying != "UInt32")
          tables_.refuse(field, "an enumeration of " + quotedName(underlying));
        definition.isFlags = underlying == "UInt32";
        return;
      }
      std::optional<uint32_t> value;
      forEach(constants_, field, [&](uint32_t number) {
        const Row constant{Table::Constant, number};
        tables_.in(constant, [&] { value = tables_.blob(constant, 2).u32(0); });
      });
      const std::string name = identifierAt(field, 1, "a constant");
      if (!value)
        tables_.refuse(field, quotedName(name) + " has no value");
      definition.constants.push_back(
          {name, definition.isFlags ? int64_t{*value} : int64_t{static_cast<int32_t>(*value)}});
    });
  }

  void fields(Row type, Definition &definition) {
    forEachField(type, [&](Row field) {
      if (!(tables_.number(field, 0) & kStaticFlag))
        definition.fields.push_back(
            {SignatureReader(tables_, definition.typeParameters).field(tables_.blob(field, 2)),
             identifierAt(field, 1, "a field")});
    });
  }

  void methods(Row type, Definition &definition) {
    const bool isDelegate = definition.kind == Definition::Kind::Delegate;
    const auto [first, end] = tables_.range(type, 5);
    for (uint32_t i = first; i < end; ++i) {
      const Row row{Table::MethodDef, i};
      tables_.in(row, [&] {
        if (!isDelegate || tables_.string(row, 3) == "Invoke")
          definition.methods.push_back(method(row, definition));
      });
    }
    if (isDelegate && definition.methods.size() != 1)
      tables_.refuse(type, "a delegate with " + std::to_string(definition.methods.size()) +
                               " methods 'Invoke'");
  }

  Method method(Row row, const Definition &definition) {
    Method method;
    method.place = {&tables_, row};
    method.name = tables_.string(row, 3);
    forEach(semantics_, row, [&](uint32_t number) { role(number, method); });
    if (const Attribute *overload = attributes_.find(row, "OverloadAttribute");
        overload && overload->text(0) && method.role == Method::Role::Method &&
        *overload->text(0) != method.name) {
      method.overloadedName = std::exchange(method.name, *overload->text(0));
    }
    if (const Attribute *deprecated = attributes_.find(row, "DeprecatedAttribute"))
      method.deprecated = deprecated->text(0) ? *deprecated->text(0) : "";

    const std::vector<SignatureType> types =
        SignatureReader(tables_, definition.typeParameters).method(tables_.blob(row, 4));
    method.result = types[0].type;
    method.returnsArray = types[0].isArray;
    for (size_t i = 1; i < types.size(); ++i) {
      Parameter &parameter = method.parameters.emplace_back();
      parameter.type = *types[i].type;
      parameter.isArray = types[i].isArray;
      parameter.isByReference = types[i].isByReference;
      parameter.isConst = types[i].isConst;
    }
    nameParameters(row, method);
    return method;
  }

  void role(uint32_t number, Method &method) {
    const Row row{Table::MethodSemantics, number};
    tables_.in(row, [&] {
      const Row association = tables_.target(row, 2);
      switch (tables_.number(row, 0)) {
      case 0x1:
        method.role = Method::Role::Setter;
        break;
      case 0x2:
        method.role = Method::Role::Getter;
        break;
      case 0x8:
        method.role = Method::Role::EventAdd;
        break;
      case 0x10:
        method.role = Method::Role::EventRemove;
        break;
      default:
        tables_.refuse(row, "a method that is neither accessor nor part of an event");
      }
      method.name = tables_.string(association, 1);
    });
  }

  void nameParameters(Row row, Method &method) {
    const auto [first, end] = tables_.range(row, 5);
    for (uint32_t i = first; i < end; ++i) {
      const Row param{Table::Param, i};
      tables_.in(param, [&] {
        const uint32_t number = tables_.number(param, 1);
        if (number > method.parameters.size())
          tables_.refuse(param, "parameter " + std::to_string(number) + " of " +
                                    std::to_string(method.parameters.size()));
        if (number == 0) {
          method.resultName = tables_.string(param, 2);
          return;
        }
        Parameter &parameter = method.parameters[number - 1];
        parameter.name = identifierAt(param, 2, "a parameter");
        parameter.isOut = tables_.number(param, 0) & kOutFlag;
        if (const Attribute *length = attributes_.find(param, "LengthIsAttribute"))
          parameter.lengthIs = static_cast<uint32_t>(length->number(0));
      });
    }
    for (const Parameter &parameter : method.parameters) {
      if (parameter.name.empty())
        tables_.refuse(row, "a parameter without a name");
    }
  }

  void classInterfaces(Row type, Definition &definition) {
    size_t defaults = 0;
    forEach(interfaces_, type, [&](uint32_t number) {
      const Row row{Table::InterfaceImpl, number};
      tables_.in(row, [&] {
        const Row interface = tables_.target(row, 1);
        if (!interface)
          tables_.refuse(row, "an interface without a row");
        std::vector<TypeName> &list = definition.interfaces;
        list.push_back(SignatureReader(tables_, {}).type(interface));
        if (attributes_.find(row, "DefaultAttribute") && defaults++ == 0)
          std::rotate(list.begin(), list.end() - 1, list.end());
      });
    });
    if (defaults > 1 || (defaults == 0 && !definition.interfaces.empty()))
      tables_.refuse(type, quotedName(definition.fullName()) + " has " + std::to_string(defaults) +
                               " default interfaces");
  }

  void classSide(Row type, Definition &definition) {
    for (const Attribute &attribute : attributes_.of(type)) {
      // The name of an assembly may follow.
      const auto interface = [&]() -> std::string {
        const std::string &text = *attribute.text(0);
        const std::string name = text.substr(0, text.find(','));
        if (!isDotted(name))
          tables_.refuse(type, quotedName(name) + " is no name of an interface");
        return name;
      };
      const bool hasType = attribute.text(0);
      // Made without arguments: the first argument is a version, or the contract by itself.
      const bool hasFactory = hasType && attribute.arguments.size() > 1;
      if (attribute.name == "StaticAttribute" && hasType)
        definition.classSide.push_back({syntax::Form::Statics, interface()});
      else if (attribute.name == "ComposableAttribute" && hasType)
        definition.composable.push_back(interface());
      else if (attribute.name == "ActivatableAttribute" && hasFactory)
        definition.classSide.push_back({syntax::Form::Factory, interface()});
      else if (attribute.name == "ActivatableAttribute")
        definition.isActivatable = true;
    }
  }

  const Tables &tables_;
  Attributes attributes_;
  Index interfaces_, constants_, parameters_, semantics_;
};

} // namespace

std::vector<Definition> readDefinitions(const Tables &tables) { return Reader(tables).run(); }

} // namespace bridgegen::metadata
