#ifndef WRT_GENERATOR_LEXER_H
#define WRT_GENERATOR_LEXER_H

#include "generator/read/Diagnostics.h"

#include <vector>

namespace bridgegen {

/// What a token is. A GUID in braces is one token; so are the braces of everything else.
enum class TokenKind { Word, Number, Text, Guid, Sign, End };

struct Token {
  TokenKind kind = TokenKind::End;
  std::string_view text; ///< as it stands in the source; without quotes or braces for Text and Guid
  Position at;
};

/// The tokens of `source`, comments left out; the last one is `End`. A character that no token
/// begins with, an open comment or an open string is reported and skipped.
std::vector<Token> tokenize(const Source &source, Diagnostics &diagnostics);

} // namespace bridgegen

#endif
