#include "generator/read/Lexer.h"

#include <algorithm>
#include <cctype>

namespace bridgegen {

namespace {

bool isWordStart(char c) { return std::isalpha(static_cast<unsigned char>(c)) || c == '_'; }
bool isWordPart(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; }

/// A GUID begins with a brace and something that can only be meant as one: no word of the grammar
/// follows a brace with a digit in front or a dash behind it.
bool looksLikeGuid(std::string_view rest) {
  size_t length = 0;
  while (length < rest.size() && isWordPart(rest[length]))
    ++length;
  return length != 0 && ((length < rest.size() && rest[length] == '-') ||
                         std::isdigit(static_cast<unsigned char>(rest[0])));
}

class Lexer {
public:
  Lexer(const Source &source, Diagnostics &diagnostics)
      : source_(source), diagnostics_(diagnostics), rest_(source.text) {}

  std::vector<Token> run() {
    while (skipSpace())
      token();
    add(TokenKind::End, "end of file");
    return std::move(tokens_);
  }

private:
  Position here() const { return {&source_, line_, column_}; }

  std::string_view take(size_t count) {
    const std::string_view taken = rest_.substr(0, count);
    for (const char c : taken) {
      ++column_;
      if (c == '\n') {
        ++line_;
        column_ = 1;
      }
    }
    rest_.remove_prefix(taken.size());
    return taken;
  }

  void add(TokenKind kind, std::string_view text) { tokens_.push_back({kind, text, here()}); }

  /// Whether there is something after spaces and comments.
  bool skipSpace() {
    while (!rest_.empty()) {
      if (std::isspace(static_cast<unsigned char>(rest_[0]))) {
        take(1);
      } else if (rest_.starts_with("//")) {
        take(std::min(rest_.find('\n'), rest_.size()));
      } else if (rest_.starts_with("/*")) {
        const size_t end = rest_.find("*/", 2);
        if (end == rest_.npos)
          diagnostics_.error(here(), "'/*' without '*/'");
        take(end == rest_.npos ? rest_.size() : end + 2);
      } else {
        return true;
      }
    }
    return false;
  }

  size_t length(bool (*belongs)(char)) const {
    size_t count = 0;
    while (count < rest_.size() && belongs(rest_[count]))
      ++count;
    return count;
  }

  void token() {
    const char first = rest_[0];
    if (isWordStart(first))
      take(TokenKind::Word, length(isWordPart));
    else if (std::isdigit(static_cast<unsigned char>(first)))
      take(TokenKind::Number, length(isWordPart));
    else if (first == '{' && looksLikeGuid(rest_.substr(1)))
      guid();
    else if (first == '"')
      text();
    else if (std::string_view("{}[]()<>,;:=.-").find(first) != std::string_view::npos)
      take(TokenKind::Sign, 1);
    else
      diagnostics_.error(here(), "unexpected character " + quoted(take(1)));
  }

  void take(TokenKind kind, size_t count) {
    add(kind, rest_.substr(0, count));
    take(count);
  }

  void guid() {
    const size_t end = std::min(rest_.find_first_of("}\n"), rest_.size());
    add(TokenKind::Guid, rest_.substr(1, end - 1));
    take(end < rest_.size() && rest_[end] == '}' ? end + 1 : end);
  }

  void text() {
    const size_t end = rest_.find_first_of("\"\n", 1);
    if (end == rest_.npos || rest_[end] == '\n') {
      diagnostics_.error(here(), "'\"' without a second one on its line");
      take(end == rest_.npos ? rest_.size() : end);
      return;
    }
    add(TokenKind::Text, rest_.substr(1, end - 1));
    take(end + 1);
  }

  const Source &source_;
  Diagnostics &diagnostics_;
  std::string_view rest_;
  unsigned line_ = 1;
  unsigned column_ = 1;
  std::vector<Token> tokens_;
};

} // namespace

std::vector<Token> tokenize(const Source &source, Diagnostics &diagnostics) {
  return Lexer(source, diagnostics).run();
}

} // namespace bridgegen
