#ifndef WRT_XML_NAMESPACES_H
#define WRT_XML_NAMESPACES_H

#include <WRTStatus.h>

#include <libxml/tree.h>
#include <optional>
#include <string>

namespace wrt::components {

inline constexpr char kXmlNamespace[] = "http://www.w3.org/XML/1998/namespace";

/// Sees to it that what is in the tree below `top`, and `top` itself, can be written: the namespace
/// of each name is declared under the name's prefix, where it stands or above. Where the prefix
/// means something else already, the name gets another.
void bindNamespaces(xmlNode *top);

/// The prefix that an attribute of this name would declare, empty for the default namespace;
/// nothing for ordinary attributes.
std::optional<std::string> declaredPrefix(const std::string &attributeName);
/// The declaration of the prefix that stands on the element, or null.
const xmlNs *findDeclaration(const xmlNode *element, const std::string &prefix);
/// Declares a namespace on the element. Fails when its own names use the prefix for another.
HRESULT declareNamespace(xmlNode *element, const std::string &prefix, const std::string &uri);

} // namespace wrt::components

#endif
