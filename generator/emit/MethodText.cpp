#include "generator/emit/MethodText.h"

namespace bridgegen {

namespace {

constexpr size_t kLineLength = 100;

struct Piece {
  std::string label; ///< up to the colon, without it
  std::string rest;
};

std::string onOneLine(const std::vector<Piece> &pieces) {
  std::string text;
  for (const Piece &piece : pieces)
    text += (text.empty() ? "" : " ") + piece.label + ":" + piece.rest;
  return text;
}

std::string onSeveralLines(const std::vector<Piece> &pieces) {
  const size_t colon = pieces[0].label.size();
  std::string text = pieces[0].label + ":" + pieces[0].rest;
  for (size_t i = 1; i < pieces.size(); ++i) {
    const size_t indent = colon > pieces[i].label.size() ? colon - pieces[i].label.size() : 4;
    text += "\n" + std::string(indent, ' ') + pieces[i].label + ":" + pieces[i].rest;
  }
  return text;
}

} // namespace

std::string methodHead(const Method &method, Nullability nullability) {
  const auto spelled = [&](const ObjcType &type) {
    return "(" + (nullability == Nullability::Shown ? type.inMethod() : type.spelling) + ")";
  };
  const std::string start = (method.isClassMethod ? "+ " : "- ") + spelled(method.result);
  if (!method.hasError)
    return start + method.firstWord();

  std::vector<Piece> pieces;
  for (const Method::Argument &argument : method.arguments)
    pieces.push_back({argument.label, spelled(argument.type) + argument.name});
  pieces.push_back({pieces.empty() ? method.firstWord() : "error", "(NSError **)error"});
  pieces[0].label.insert(0, start);
  const std::string line = onOneLine(pieces);
  return line.size() <= kLineLength - 2 || pieces.size() == 1 ? line : onSeveralLines(pieces);
}

} // namespace bridgegen
