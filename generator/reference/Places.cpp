#include "generator/reference/Places.h"

#include <cctype>
#include <set>

namespace bridgegen {

namespace {

bool isWordCharacter(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_'; }

/// Calls `visit` with each word and with each character between words, and with the place behind
/// it.
template <class Visit>
void forEachToken(const std::string &text, Visit visit) {
  for (size_t at = 0; at < text.size();) {
    size_t end = at;
    while (end < text.size() && isWordCharacter(text[end]))
      ++end;
    end += end == at;
    visit(text.substr(at, end - at), end);
    at = end;
  }
}

bool isKeyword(const std::string &word) {
  static const std::set<std::string, std::less<>> words{
      "void",    "int",    "bool",  "unsigned",  "char",      "short",    "long",
      "float",   "double", "id",    "nullable",  "_Nullable", "_Nonnull", "struct",
      "typedef", "enum",   "const", "interface", "protocol",  "end",      "required"};
  return words.contains(word);
}

} // namespace

std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text)
    result += c == '<' ? "&lt;" : c == '>' ? "&gt;" : c == '&' ? "&amp;" : std::string(1, c);
  return result;
}

Places::Places(const Model &model, const std::vector<HandWrittenClass> &handWritten) {
  for (const auto &[name, type] : model.types()) {
    if (!hasPage(*type))
      continue;
    const std::string page = address(*type);
    addresses_.emplace(type->cName(), page);
    if (type->isReferenceType())
      addresses_.insert_or_assign(type->bridgeClass(), page);
  }
  for (const HandWrittenClass &type : handWritten)
    addresses_.insert_or_assign(type.name, addressOfHandWritten(type.name));
}

bool Places::hasPage(const Type &type) {
  if (type.unit == nullptr || type.isOpen)
    return false;
  if (type.kind == Kind::Enum)
    return !asEnum(type).isExtern;
  if (type.kind == Kind::Interface)
    return asInterface(type).hasProtocol();
  return type.kind != Kind::Class || asClass(type).isBridged();
}

std::string Places::nameSpace(const Type &type) {
  const std::string name = type.name.substr(0, type.name.find('<'));
  const size_t dot = name.rfind('.');
  return dot == name.npos ? type.unit->name : name.substr(0, dot);
}

std::string Places::pageName(const Type &type) {
  return type.isInstance ? type.bridgeName : type.simpleName();
}

std::string Places::address(const Type &type) {
  return "/api/" + nameSpace(type) + "/" + pageName(type) + ".html";
}

std::string Places::address(const InterfaceType &protocol, const std::string &selector) {
  return address(protocol) + "#" + selector;
}

std::string Places::addressOfHandWritten(const std::string &className) {
  return "/headers/" + className + ".html";
}

std::string Places::word(const std::string &word) const {
  const auto found = addresses_.find(word);
  if (found != addresses_.end())
    return "<a href=\"" + found->second + "\">" + word + "</a>";
  return isKeyword(word) ? "<i>" + word + "</i>" : escaped(word);
}

std::string Places::code(const std::string &text) const {
  std::string html;
  forEachToken(text, [&](const std::string &token, size_t) { html += word(token); });
  return html;
}

std::string Places::methodHead(const std::string &head) const {
  const bool takesArguments = head.find(':') != head.npos;
  unsigned depth = 0;
  std::string html;
  forEachToken(head, [&](const std::string &token, size_t end) {
    if (token == "(")
      ++depth;
    else if (token == ")")
      --depth;
    if (depth > 0 || !isWordCharacter(token[0]))
      html += word(token);
    else if (!takesArguments || (end < head.size() && head[end] == ':'))
      html += "<b>" + token + "</b>";
    else
      html += "<var>" + token + "</var>";
  });
  return html;
}

std::string Places::prose(const std::string &text) const {
  std::string html;
  bool isCode = false;
  for (size_t at = 0; at <= text.size();) {
    const size_t end = std::min(text.find('`', at), text.size());
    const std::string part = text.substr(at, end - at);
    html += isCode ? "<code>" + code(part) + "</code>" : escaped(part);
    isCode = !isCode;
    at = end + 1;
  }
  return html;
}

std::string Places::link(const Type &type) {
  const std::string name = escaped(type.name);
  return hasPage(type) ? "<a href=\"" + address(type) + "\">" + name + "</a>" : name;
}

} // namespace bridgegen
