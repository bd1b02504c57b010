#include "platform/linux/components/xml/XmlNamespaces.h"

#include "platform/linux/components/xml/XmlChars.h"
#include "platform/linux/components/xml/XmlTree.h"

namespace wrt::components {
namespace {

bool isPrefix(const xmlNs *space, const std::string &prefix) {
  return text(space->prefix) == prefix;
}

/// The declaration that a name on `element` is to have instead of `wanted`.
xmlNs *boundNamespace(xmlNode *element, xmlNs *wanted, bool isAttribute) {
  if (wanted == nullptr || isPrefix(wanted, "xml"))
    return wanted;
  if (wanted->prefix != nullptr || !isAttribute) {
    xmlNs *found = xmlSearchNs(element->doc, element, wanted->prefix);
    if (found != nullptr && text(found->href) == text(wanted->href))
      return found;
    // Null when the element itself declares the prefix for something else.
    if (xmlNs *declared = xmlNewNs(element, wanted->href, wanted->prefix))
      return declared;
  }
  for (unsigned number = 1;; ++number) {
    const std::string prefix = "ns" + std::to_string(number);
    if (xmlSearchNs(element->doc, element, chars(prefix)) == nullptr)
      return xmlNewNs(element, wanted->href, chars(prefix));
  }
}

} // namespace

void bindNamespaces(xmlNode *top) {
  if (top->type == XML_ELEMENT_NODE) {
    top->ns = boundNamespace(top, top->ns, false);
    for (xmlAttr *attribute = top->properties; attribute != nullptr; attribute = attribute->next)
      attribute->ns = boundNamespace(top, attribute->ns, true);
  }
  for (xmlNode *child : childrenOf(top)) {
    if (child->type == XML_ELEMENT_NODE)
      bindNamespaces(child);
  }
}

std::optional<std::string> declaredPrefix(const std::string &attributeName) {
  const auto [prefix, name] = splitName(attributeName);
  if (attributeName == "xmlns")
    return "";
  return prefix == "xmlns" ? std::optional(name) : std::nullopt;
}

const xmlNs *findDeclaration(const xmlNode *element, const std::string &prefix) {
  const xmlNs *space = element->nsDef;
  while (space != nullptr && !isPrefix(space, prefix))
    space = space->next;
  return space;
}

HRESULT declareNamespace(xmlNode *element, const std::string &prefix, const std::string &uri) {
  const auto usesPrefix = [&](const xmlNs *space) {
    return space != nullptr && isPrefix(space, prefix) && text(space->href) != uri;
  };
  bool used = usesPrefix(element->ns) || usesPrefix(findDeclaration(element, prefix));
  for (const xmlNode *attribute : attributesOf(element))
    used = used || usesPrefix(attribute->ns);
  const bool reserved = prefix == "xml" || prefix == "xmlns" || uri == kXmlNamespace;
  if (used || reserved || (uri.empty() && !prefix.empty()) ||
      (!prefix.empty() && xmlValidateNCName(chars(prefix), 0) != 0))
    return status::kInvalidArgument;
  if (findDeclaration(element, prefix) == nullptr) {
    xmlNewNs(element, chars(uri), prefix.empty() ? nullptr : chars(prefix));
    bindNamespaces(element);
  }
  return status::kOk;
}

} // namespace wrt::components
