#include "generator/read/TokenStream.h"

namespace bridgegen {

bool TokenStream::accept(std::string_view text) {
  if (!at(text))
    return false;
  ++next_;
  return true;
}

void TokenStream::expect(std::string_view text) {
  if (!accept(text))
    fail(quoted(text));
}

Name TokenStream::word(std::string_view what) {
  const Token &token = take(TokenKind::Word, what);
  return {std::string(token.text), token.at};
}

const Token &TokenStream::take(TokenKind kind, std::string_view what) {
  const Token &token = peek();
  if (token.kind != kind)
    fail(what);
  ++next_;
  return token;
}

void TokenStream::fail(std::string_view expected) const {
  const Token &token = peek();
  const std::string found =
      token.kind == TokenKind::End ? std::string(token.text) : quoted(token.text);
  failAt(token.at, "expected " + std::string(expected) + ", found " + found);
}

void TokenStream::failAt(Position at, std::string message) const {
  diagnostics_.error(at, std::move(message));
  throw SyntaxError();
}

} // namespace bridgegen
