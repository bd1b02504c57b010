#include "generator/read/MemberParser.h"

namespace bridgegen {

namespace {

using namespace syntax;

class MemberParser {
public:
  explicit MemberParser(TokenStream &tokens) : tokens_(tokens) {}

  Member member() {
    std::vector<Attribute> attributes = bridgegen::attributes(tokens_);
    const Position at = tokens_.peek().at;
    // `reserved` and `event` mean something only where a type could not stand.
    if (tokens_.at("reserved") && tokens_.peek(1).text == ";") {
      refuseAttributes(attributes);
      tokens_.expect("reserved");
      tokens_.expect(";");
      return Reserved{at};
    }
    if (tokens_.at("event") && tokens_.peek(1).kind == TokenKind::Word) {
      refuseAttributes(attributes);
      tokens_.expect("event");
      return event();
    }
    std::optional<TypeName> type;
    if (!tokens_.accept("void"))
      type = typeName(tokens_, "a member or '}'");
    Name name = tokens_.word("the member's name");
    if (tokens_.at("("))
      return Method{std::move(attributes), std::move(type), std::move(name), parameters()};
    if (!type || !tokens_.at("{"))
      tokens_.fail(type ? "'(' or '{'" : "'('");
    refuseAttributes(attributes);
    return Property{*std::move(type), std::move(name), accessors()};
  }

private:
  void refuseAttributes(const std::vector<Attribute> &attributes) {
    if (!attributes.empty())
      tokens_.failAt(attributes[0].name.at,
                     "expected no attribute here, found " + quoted(attributes[0].name.text));
  }

  Event event() {
    Event event{typeName(tokens_, "the handler's type"), tokens_.word("the event's name"), {}};
    event.parameter = nameInParentheses();
    tokens_.expect(";");
    return event;
  }

  std::optional<Name> nameInParentheses() {
    if (!tokens_.accept("("))
      return std::nullopt;
    Name name = tokens_.word("a parameter's name");
    tokens_.expect(")");
    return name;
  }

  std::vector<Accessor> accessors() {
    std::vector<Accessor> accessors;
    tokens_.expect("{");
    do {
      const Position at = tokens_.peek().at;
      if (tokens_.accept("set"))
        accessors.push_back({true, at, nameInParentheses()});
      else if (tokens_.accept("get"))
        accessors.push_back({false, at, {}});
      else
        tokens_.fail(accessors.empty() ? "'get' or 'set'" : "'get', 'set' or '}'");
      tokens_.expect(";");
    } while (!tokens_.accept("}"));
    return accessors;
  }

  std::vector<Parameter> parameters() {
    std::vector<Parameter> parameters;
    tokens_.expect("(");
    while (!tokens_.accept(")")) {
      parameters.push_back(parameter());
      if (!tokens_.at(")"))
        tokens_.expect(",");
    }
    tokens_.expect(";");
    return parameters;
  }

  /// A word is a direction when a type follows, which takes at least two more words.
  bool direction(std::string_view word) {
    return tokens_.at(word) && tokens_.peek(1).kind == TokenKind::Word && tokens_.accept(word);
  }

  Parameter parameter() {
    Parameter parameter;
    if (direction("return"))
      parameter.isReturn = true;
    if (direction("fill"))
      parameter.isFill = true;
    else if (!parameter.isReturn && direction("out"))
      parameter.isOut = true;
    parameter.type = typeName(tokens_, "a parameter's type or ')'");
    if (tokens_.accept("["))
      parameter.array = array();
    else if (parameter.isFill || parameter.isReturn)
      tokens_.fail("'[' (only arrays are filled or returned through a parameter)");
    parameter.name = tokens_.word("a parameter's name");
    return parameter;
  }

  Array array() {
    Array array;
    if (tokens_.accept("]"))
      return array;
    array.count = count();
    if (tokens_.accept(",")) {
      if (tokens_.accept("return"))
        array.filled = Filled::Return;
      else if (tokens_.accept("out"))
        array.filled = Filled::Out;
      else
        tokens_.fail("'out' or 'return'");
      array.filledCount = count();
    }
    tokens_.expect("]");
    return array;
  }

  Count count() {
    TypeName first = typeName(tokens_, "a count's type or name");
    if (tokens_.peek().kind == TokenKind::Word)
      return {std::move(first), tokens_.word("a count's name")};
    return {std::nullopt, std::move(first.name)};
  }

  TokenStream &tokens_;
};

TypeName typeNameWithin(TokenStream &tokens, std::string_view what, unsigned depth) {
  TypeName type{dottedName(tokens, what), {}};
  if (!tokens.at("<"))
    return type;
  if (depth == kDeepestType)
    tokens.failAt(tokens.peek().at, "type arguments are nested deeper than " +
                                        std::to_string(kDeepestType) + " times");
  tokens.expect("<");
  do
    type.arguments.push_back(typeNameWithin(tokens, "a type argument", depth + 1));
  while (tokens.accept(","));
  tokens.expect(">");
  return type;
}

} // namespace

Name dottedName(TokenStream &tokens, std::string_view what) {
  Name name = tokens.word(what);
  while (tokens.accept("."))
    name.text += "." + tokens.word("a name").text;
  return name;
}

TypeName typeName(TokenStream &tokens, std::string_view what) {
  return typeNameWithin(tokens, what, 0);
}

std::vector<Attribute> attributes(TokenStream &tokens) {
  std::vector<Attribute> attributes;
  while (tokens.accept("[")) {
    Attribute attribute{tokens.word("an attribute"), {}};
    if (tokens.accept("(")) {
      const Token &text = tokens.take(TokenKind::Text, "a text in double quotes");
      attribute.value = Name{std::string(text.text), text.at};
      tokens.expect(")");
    }
    tokens.expect("]");
    attributes.push_back(std::move(attribute));
  }
  return attributes;
}

std::vector<Member> members(TokenStream &tokens) {
  std::vector<Member> members;
  tokens.expect("{");
  while (!tokens.accept("}"))
    members.push_back(MemberParser(tokens).member());
  return members;
}

} // namespace bridgegen
