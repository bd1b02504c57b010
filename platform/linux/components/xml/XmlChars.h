/// Texts between the tree's users and libxml2, and what an XML document can hold.
#ifndef WRT_XML_CHARS_H
#define WRT_XML_CHARS_H

#include <libxml/tree.h>
#include <string>
#include <string_view>

namespace wrt::components {

/// Stands for a text that no document can hold. It is no UTF-8, so nothing else equals it.
inline const std::string kNoText = "\xFF";

/// UTF-8 for a text that is to become part of a document: `kNoText` if it has control characters
/// (U+0000 among them), U+FFFE, U+FFFF or lone surrogates.
std::string xmlText(std::u16string_view text);

/// Whether a node of that kind with that content can be written as markup.
bool canHold(xmlElementType kind, const std::string &content);
/// Whether that is a qualified name.
bool isName(const std::string &name);

inline const xmlChar *chars(const std::string &text) {
  return reinterpret_cast<const xmlChar *>(text.c_str());
}
inline std::string text(const xmlChar *chars) {
  return chars == nullptr ? std::string() : reinterpret_cast<const char *>(chars);
}
/// Prefix, or empty, and local name.
inline std::pair<std::string, std::string> splitName(const std::string &qualifiedName) {
  const size_t colon = qualifiedName.find(':');
  if (colon == qualifiedName.npos)
    return {"", qualifiedName};
  return {qualifiedName.substr(0, colon), qualifiedName.substr(colon + 1)};
}

} // namespace wrt::components

#endif
