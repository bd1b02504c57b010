#ifndef WRT_GENERATOR_TOKEN_STREAM_H
#define WRT_GENERATOR_TOKEN_STREAM_H

#include "generator/read/Lexer.h"

#include <algorithm>
#include <span>

namespace bridgegen {

/// Ends the reading of a file; what is wrong has been reported.
struct SyntaxError {};

/// The tokens of one file from first to last. Everything that is not what was asked for is reported
/// and thrown as `SyntaxError`.
class TokenStream {
public:
  TokenStream(std::span<const Token> tokens, Diagnostics &diagnostics)
      : tokens_(tokens), diagnostics_(diagnostics) {}

  const Token &peek(size_t ahead = 0) const {
    return tokens_[std::min(next_ + ahead, tokens_.size() - 1)];
  }
  bool atEnd() const { return peek().kind == TokenKind::End; }
  /// Whether the next token is this word or sign.
  bool at(std::string_view text) const { return is(peek(), text); }

  /// Takes the next token if it is this word or sign.
  bool accept(std::string_view text);
  void expect(std::string_view text);
  /// A word; `what` says of what kind, for the message.
  Name word(std::string_view what);
  const Token &take(TokenKind kind, std::string_view what);

  /// Reports that the next token is not `expected` (already quoted where it stands for itself).
  [[noreturn]] void fail(std::string_view expected) const;
  [[noreturn]] void failAt(Position at, std::string message) const;

private:
  static bool is(const Token &token, std::string_view text) {
    return (token.kind == TokenKind::Word || token.kind == TokenKind::Sign) && token.text == text;
  }

  std::span<const Token> tokens_;
  Diagnostics &diagnostics_;
  size_t next_ = 0;
};

} // namespace bridgegen

#endif
