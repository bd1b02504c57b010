#include "generator/read/Parser.h"

#include "generator/read/MemberParser.h"
#include "generator/read/TokenStream.h"

#include <charconv>
#include <limits>

namespace bridgegen {

namespace {

using namespace syntax;

class Parser {
public:
  explicit Parser(TokenStream &tokens) : tokens_(tokens) {}

  void file(Unit &unit) {
    section_ = section("");
    while (!tokens_.atEnd()) {
      if (!tokens_.accept("namespace")) {
        unit.declarations.push_back(declaration());
        continue;
      }
      std::string nameSpace = dottedName(tokens_, "a namespace").text;
      tokens_.expect(";");
      section_ = section(std::move(nameSpace));
    }
  }

private:
  std::shared_ptr<const Section> section(std::string nameSpace) {
    auto section = std::make_shared<Section>(Section{std::move(nameSpace), {}});
    while (tokens_.accept("using")) {
      section->usings.push_back(dottedName(tokens_, "a namespace"));
      tokens_.expect(";");
    }
    return section;
  }

  Declaration declaration() {
    Declaration declaration{section_, attributes(tokens_), {}};
    declaration.declared = declared();
    return declaration;
  }

  Declared declared() {
    if (tokens_.accept("enum"))
      return enumeration(false);
    if (tokens_.accept("flags")) {
      tokens_.expect("enum");
      return enumeration(true);
    }
    if (tokens_.accept("struct"))
      return structure();
    if (tokens_.accept("delegate"))
      return delegate();
    if (tokens_.accept("interface"))
      return family();
    if (tokens_.accept("full"))
      return formed(Form::Full);
    if (tokens_.accept("proxy"))
      return formed(Form::Proxy);
    if (tokens_.accept("extern"))
      return formed(Form::Extern);
    if (tokens_.accept("statics"))
      return interface(Form::Statics);
    if (tokens_.accept("factory"))
      return interface(Form::Factory);
    if (tokens_.at("using"))
      tokens_.failAt(tokens_.peek().at,
                     "a 'using' line stands behind its 'namespace' line, before the declarations");
    tokens_.fail(
        "a declaration ('enum', 'flags', 'struct', 'delegate', 'interface', 'full', 'proxy', "
        "'extern', 'statics', 'factory' or 'namespace')");
  }

  Declared formed(Form form) {
    if (tokens_.at("interface"))
      return interface(form);
    if (tokens_.accept("class"))
      return runtimeClass(form);
    if (form == Form::Extern && tokens_.accept("enum")) {
      Enumeration known = enumeration(false);
      known.isExtern = true;
      return known;
    }
    if (tokens_.peek().kind != TokenKind::Word)
      tokens_.fail("'interface', 'class' or a generic type");
    return instantiation(form);
  }

  Enumeration enumeration(bool isFlags) {
    Enumeration enumeration{
        false, isFlags, tokens_.word("the enumeration's name"), bridgeName(), {}};
    tokens_.expect("{");
    while (!tokens_.accept("}")) {
      Name name = tokens_.word("a constant's name or '}'");
      tokens_.expect("=");
      enumeration.constants.push_back({std::move(name), number(isFlags)});
      if (!tokens_.at("}"))
        tokens_.expect(",");
    }
    return enumeration;
  }

  /// An enumeration constant: 32 bits, signed or, for flags, unsigned.
  int64_t number(bool isUnsigned) {
    const Position at = tokens_.peek().at;
    const bool isNegative = tokens_.accept("-");
    const std::string_view text = tokens_.take(TokenKind::Number, "a number").text;
    const bool isHex = text.starts_with("0x") || text.starts_with("0X");
    const std::string_view digits = text.substr(isHex ? 2 : 0);
    int64_t value = 0;
    const auto [end, status] =
        std::from_chars(digits.data(), digits.data() + digits.size(), value, isHex ? 16 : 10);
    if (digits.empty() || status != std::errc() || end != digits.data() + digits.size())
      tokens_.failAt(at, "expected a decimal or hexadecimal number, found " + quoted(text));
    if (isNegative)
      value = -value;
    const int64_t low = isUnsigned ? 0 : std::numeric_limits<int32_t>::min();
    const int64_t high =
        isUnsigned ? std::numeric_limits<uint32_t>::max() : std::numeric_limits<int32_t>::max();
    if (value < low || value > high)
      tokens_.failAt(at, "expected a number of 32 bits, found " + quoted(text));
    return value;
  }

  Structure structure() {
    Structure structure{tokens_.word("the structure's name"), bridgeName(), {}};
    tokens_.expect("{");
    while (!tokens_.accept("}")) {
      structure.fields.push_back(field("a field's type or '}'"));
      tokens_.expect(";");
    }
    return structure;
  }

  Field field(std::string_view what) {
    TypeName type = typeName(tokens_, what);
    return {std::move(type), tokens_.word("a name")};
  }

  Delegate delegate() {
    Delegate delegate;
    // A result's type and a generic delegate's name begin alike; what follows tells them apart.
    TypeName first = typeName(tokens_, "the delegate's name or result");
    if (tokens_.peek().kind == TokenKind::Word && !tokens_.at("as")) {
      delegate.result = std::move(first);
      delegate.name = tokens_.word("the delegate's name");
    } else {
      delegate.name = std::move(first.name);
      for (TypeName &argument : first.arguments) {
        if (!argument.arguments.empty())
          tokens_.failAt(argument.name.at, "expected the name of a type parameter");
        delegate.typeParameters.push_back(std::move(argument.name));
      }
    }
    delegate.bridgeName = bridgeName();
    delegate.iid = identifier();
    tokens_.expect("(");
    while (!tokens_.accept(")")) {
      delegate.arguments.push_back(field("a parameter's type or ')'"));
      if (!tokens_.at(")"))
        tokens_.expect(",");
    }
    tokens_.expect(";");
    return delegate;
  }

  std::optional<Name> bridgeName() {
    if (!tokens_.accept("as"))
      return std::nullopt;
    return tokens_.word("a bridge name");
  }

  Identifier identifier() {
    const Token &token = tokens_.take(TokenKind::Guid, "a GUID in braces");
    if (const std::optional<Guid> guid = Guid::parse(token.text))
      return {*guid, token.at};
    tokens_.failAt(token.at, "expected a GUID of 8-4-4-4-12 hexadecimal digits, found " +
                                 quoted("{" + std::string(token.text) + "}"));
  }

  Interface interface(Form form) {
    tokens_.expect("interface");
    Interface interface;
    interface.form = form;
    interface.name = tokens_.word("the interface's name");
    if (tokens_.at("<"))
      tokens_.failAt(tokens_.peek().at,
                     "expected no type parameters after 'full', 'proxy', 'extern', "
                     "'statics' or 'factory'; its instantiations say that");
    interface.bridgeName = bridgeName();
    interface.iid = identifier();
    if (form == Form::Proxy || form == Form::Extern) {
      if (tokens_.at("{"))
        tokens_.fail("';' (the members of a proxy or extern interface are not declared)");
      tokens_.expect(";");
    } else {
      interface.members = members(tokens_);
    }
    return interface;
  }

  Family family() {
    Family family;
    family.name = tokens_.word("the interface's name");
    if (!tokens_.accept("<"))
      tokens_.fail(
          "'<' (an interface without type parameters is 'full', 'proxy', 'extern', 'statics' "
          "or 'factory')");
    do
      family.typeParameters.push_back(tokens_.word("a type parameter"));
    while (tokens_.accept(","));
    tokens_.expect(">");
    family.iid = identifier();
    if (tokens_.accept(":"))
      family.required = typeNames();
    if (!tokens_.accept(";"))
      family.members = members(tokens_);
    return family;
  }

  Instantiation instantiation(Form form) {
    Instantiation instantiation{form, typeNames()};
    tokens_.expect(";");
    return instantiation;
  }

  std::vector<TypeName> typeNames() {
    std::vector<TypeName> types;
    do
      types.push_back(typeName(tokens_, "a type"));
    while (tokens_.accept(","));
    return types;
  }

  Class runtimeClass(Form form) {
    Class runtimeClass;
    runtimeClass.form = form;
    runtimeClass.name = tokens_.word("the class's name");
    runtimeClass.bridgeName = bridgeName();
    if (tokens_.accept(":"))
      runtimeClass.interfaces = typeNames();
    while (!tokens_.accept(";")) {
      if (tokens_.accept("statics"))
        runtimeClass.classSide.push_back({Form::Statics, typeNames()});
      else if (tokens_.accept("factory"))
        runtimeClass.classSide.push_back({Form::Factory, typeNames()});
      else
        tokens_.fail("'statics', 'factory' or ';'");
    }
    return runtimeClass;
  }

  TokenStream &tokens_;
  std::shared_ptr<const Section> section_;
};

} // namespace

syntax::Unit parse(const Source &source, Diagnostics &diagnostics) {
  syntax::Unit unit;
  unit.source = &source;
  const std::vector<Token> tokens = tokenize(source, diagnostics);
  TokenStream stream(tokens, diagnostics);
  try {
    Parser(stream).file(unit);
  } catch (const SyntaxError &) {
    // Reported where it was found.
  }
  return unit;
}

} // namespace bridgegen
