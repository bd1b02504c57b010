#include "platform/linux/components/xml/XmlChars.h"
#include "platform/linux/components/xml/XmlNamespaces.h"
#include "platform/linux/components/xml/XmlTree.h"

#include <algorithm>
#include <libxml/parser.h>
#include <libxml/xpath.h>
#include <libxml/xpathInternals.h>
#include <utility>

namespace wrt::components {
namespace {

std::string takeText(xmlChar *chars) {
  std::string result = text(chars);
  xmlFree(chars);
  return result;
}

/// Only these have one; other kinds of nodes have other fields in its place.
const xmlNs *namespaceOf(const xmlNode *node) {
  const bool has = node->type == XML_ELEMENT_NODE || node->type == XML_ATTRIBUTE_NODE;
  return has ? node->ns : nullptr;
}

template <class Visit>
void visitElements(xmlNode *node, Visit visit) {
  for (xmlNode *child : childrenOf(node)) {
    if (child->type != XML_ELEMENT_NODE)
      continue;
    visit(child);
    visitElements(child, visit);
  }
}

/// For the time of writing has the names of the namespaces below `node` escaped, which the library
/// writes as they are.
class EscapedNamespaces {
public:
  explicit EscapedNamespaces(xmlNode *node) { escapeBelow(node); }
  EscapedNamespaces(const EscapedNamespaces &) = delete;
  EscapedNamespaces &operator=(const EscapedNamespaces &) = delete;
  ~EscapedNamespaces() {
    for (const auto &[space, name] : names_)
      xmlFree(const_cast<xmlChar *>(std::exchange(space->href, name)));
  }

private:
  void escapeBelow(xmlNode *node) {
    if (node->type == XML_ELEMENT_NODE) {
      for (xmlNs *space = node->nsDef; space != nullptr; space = space->next)
        escape(space);
    }
    for (xmlNode *child : childrenOf(node))
      escapeBelow(child);
  }
  void escape(xmlNs *space) {
    const std::string name = text(space->href);
    if (name.find_first_of("&<>\"\t\n\r") == name.npos)
      return;
    std::string escaped;
    for (const char c : name) {
      const bool plain = std::string_view("&<>\"\t\n\r").find(c) == std::string_view::npos;
      escaped += plain ? std::string(1, c) : "&#" + std::to_string(c) + ";";
    }
    names_.emplace_back(space, std::exchange(space->href, xmlStrdup(chars(escaped))));
  }

  std::vector<std::pair<xmlNs *, const xmlChar *>> names_;
};

/// Makes the library's table of identifiers anew, which does not follow changes.
void refreshIdentifiers(xmlDoc *document) {
  xmlFreeIDTable(static_cast<xmlIDTable *>(std::exchange(document->ids, nullptr)));
  visitElements(reinterpret_cast<xmlNode *>(document), [&](xmlNode *element) {
    for (xmlNode *node : attributesOf(element)) {
      auto *attribute = reinterpret_cast<xmlAttr *>(node);
      // Of two with one value the first is found.
      if (xmlIsID(document, element, attribute) == 1)
        xmlAddID(nullptr, document, chars(*nodeValue(node)), attribute);
    }
  });
}

/// For the time of a search gives an attribute an element that has none: the library looks at it
/// without asking whether it is there.
class LoneAttribute {
public:
  explicit LoneAttribute(xmlNode *context) {
    while (context->parent != nullptr)
      context = context->parent;
    if (context->type != XML_ATTRIBUTE_NODE)
      return;
    attribute_ = context;
    element_ = xmlNewDocNode(context->doc, nullptr, chars("none"), nullptr);
    element_->properties = reinterpret_cast<xmlAttr *>(attribute_);
    attribute_->parent = element_;
  }
  LoneAttribute(const LoneAttribute &) = delete;
  LoneAttribute &operator=(const LoneAttribute &) = delete;
  ~LoneAttribute() {
    if (attribute_ == nullptr)
      return;
    attribute_->parent = nullptr;
    element_->properties = nullptr;
    xmlFreeNode(element_);
  }

  const xmlNode *element() const { return element_; }

private:
  xmlNode *attribute_ = nullptr;
  xmlNode *element_ = nullptr;
};

/// Whether the node is of the tree: namespaces are copies made for a result, and what is within
/// entities belongs to the DTD.
bool isOfTree(const xmlNode *node) {
  if (node->type == XML_NAMESPACE_DECL ||
      (node->parent != nullptr && node->parent->type == XML_DTD_NODE))
    return false;
  for (; node != nullptr; node = node->parent) {
    if (node->type == XML_ENTITY_DECL)
      return false;
  }
  return true;
}

/// Registers `xmlns:prefix="uri"` declarations by letting the parser read them.
bool registerNamespaces(xmlXPathContext *context, const std::string &declarations) {
  std::shared_ptr<XmlTree> tree;
  if (XmlTree::parse("<n " + declarations + "/>", false, &tree) < 0)
    return false;
  for (const xmlNs *space = tree->root()->nsDef; space != nullptr; space = space->next) {
    if (space->prefix != nullptr && xmlXPathRegisterNs(context, space->prefix, space->href) != 0)
      return false;
  }
  return true;
}

} // namespace

std::string nodeName(const xmlNode *node) {
  switch (node->type) {
  case XML_TEXT_NODE:
    return "#text";
  case XML_CDATA_SECTION_NODE:
    return "#cdata-section";
  case XML_COMMENT_NODE:
    return "#comment";
  case XML_DOCUMENT_NODE:
    return "#document";
  case XML_DOCUMENT_FRAG_NODE:
    return "#document-fragment";
  default:
    const xmlNs *space = namespaceOf(node);
    const bool hasPrefix = space != nullptr && space->prefix != nullptr;
    return (hasPrefix ? text(space->prefix) + ":" : "") + text(node->name);
  }
}

std::optional<std::string> namespaceUri(const xmlNode *node) {
  const xmlNs *space = namespaceOf(node);
  return space == nullptr ? std::nullopt : std::optional(text(space->href));
}

std::optional<std::string> prefixOf(const xmlNode *node) {
  const xmlNs *space = namespaceOf(node);
  const bool has = space != nullptr && space->prefix != nullptr;
  return has ? std::optional(text(space->prefix)) : std::nullopt;
}

bool isCharacterData(const xmlNode *node) {
  return node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE ||
         node->type == XML_COMMENT_NODE;
}

std::optional<std::string> nodeValue(xmlNode *node) {
  if (isCharacterData(node) || node->type == XML_PI_NODE || node->type == XML_ATTRIBUTE_NODE)
    return takeText(xmlNodeGetContent(node));
  return std::nullopt;
}

std::string innerText(xmlNode *node) {
  // A document's content is its element's.
  if (node->type == XML_DOCUMENT_NODE)
    node = xmlDocGetRootElement(reinterpret_cast<xmlDoc *>(node));
  return node == nullptr ? std::string() : takeText(xmlNodeGetContent(node));
}

std::vector<xmlNode *> childrenOf(const xmlNode *node) {
  std::vector<xmlNode *> children;
  // What hangs below entities belongs to the DTD.
  if (node->type == XML_ENTITY_REF_NODE || node->type == XML_DTD_NODE)
    return children;
  if (isCharacterData(node) || node->type == XML_PI_NODE)
    return children;
  for (xmlNode *child = node->children; child != nullptr; child = child->next)
    children.push_back(child);
  return children;
}

std::vector<xmlNode *> attributesOf(const xmlNode *node) {
  std::vector<xmlNode *> attributes;
  if (node->type != XML_ELEMENT_NODE)
    return attributes;
  for (xmlAttr *attribute = node->properties; attribute != nullptr; attribute = attribute->next)
    attributes.push_back(reinterpret_cast<xmlNode *>(attribute));
  return attributes;
}

xmlNode *findAttribute(const xmlNode *element, const std::string &name) {
  for (xmlNode *attribute : attributesOf(element)) {
    if (nodeName(attribute) == name)
      return attribute;
  }
  return nullptr;
}

xmlNode *findAttribute(const xmlNode *element, const std::string &uri,
                       const std::string &localName) {
  for (xmlNode *attribute : attributesOf(element)) {
    if (text(attribute->name) == localName && namespaceUri(attribute).value_or("") == uri)
      return attribute;
  }
  return nullptr;
}

std::string attributeValue(const xmlNode *element, const std::string &name) {
  if (xmlNode *attribute = findAttribute(element, name))
    return *nodeValue(attribute);
  const auto prefix = declaredPrefix(name);
  const xmlNs *space = prefix ? findDeclaration(element, *prefix) : nullptr;
  return space == nullptr ? std::string() : text(space->href);
}

std::vector<xmlNode *> elementsByName(xmlNode *node, const std::string &name) {
  std::vector<xmlNode *> found;
  visitElements(node, [&](xmlNode *element) {
    if (name == "*" || nodeName(element) == name)
      found.push_back(element);
  });
  return found;
}

xmlNode *elementById(xmlNode *document, const std::string &id) {
  refreshIdentifiers(document->doc);
  xmlAttr *attribute = xmlGetID(reinterpret_cast<xmlDoc *>(document), chars(id));
  return attribute == nullptr ? nullptr : attribute->parent;
}

std::string serialize(xmlNode *node) {
  const EscapedNamespaces escaped(node);
  const std::unique_ptr<xmlBuffer, decltype(&xmlBufferFree)> buffer(xmlBufferCreate(),
                                                                    xmlBufferFree);
  std::string declaration;
  if (node->type == XML_DOCUMENT_NODE) {
    const auto *document = reinterpret_cast<const xmlDoc *>(node);
    if (document->standalone != kNoDeclaration) {
      declaration = "<?xml version=\"" + text(document->version) + "\"";
      if (document->encoding != nullptr)
        declaration += " encoding=\"UTF-8\"";
      if (document->standalone >= 0)
        declaration += document->standalone ? " standalone=\"yes\"" : " standalone=\"no\"";
      declaration += "?>";
    }
    for (xmlNode *child = node->children; child != nullptr; child = child->next)
      xmlNodeDump(buffer.get(), child->doc, child, 0, 0);
  } else {
    xmlNodeDump(buffer.get(), node->doc, node, 0, 0);
  }
  return declaration + text(xmlBufferContent(buffer.get()));
}

HRESULT selectNodes(xmlNode *context, const std::string &xpath, const std::string &namespaces,
                    std::vector<xmlNode *> *nodes) {
  nodes->clear();
  if (xpath == kNoText)
    return status::kInvalidArgument;
  const LoneAttribute lone(context);
  if (xpath.find("id(") != xpath.npos)
    refreshIdentifiers(context->doc);
  const std::unique_ptr<xmlXPathContext, decltype(&xmlXPathFreeContext)> evaluation(
      xmlXPathNewContext(context->doc), xmlXPathFreeContext);
  if (evaluation == nullptr)
    return status::kOutOfMemory;
  evaluation->node = context;
  // The library's own handler would print what is wrong with the expression.
  evaluation->error = [](void *, xmlError *) {};
  if (!namespaces.empty() && !registerNamespaces(evaluation.get(), namespaces))
    return status::kInvalidArgument;
  const std::unique_ptr<xmlXPathObject, decltype(&xmlXPathFreeObject)> result(
      xmlXPathEvalExpression(chars(xpath), evaluation.get()), xmlXPathFreeObject);
  if (result == nullptr || result->type != XPATH_NODESET)
    return status::kInvalidArgument;
  if (result->nodesetval == nullptr)
    return status::kOk;
  xmlXPathNodeSetSort(result->nodesetval);
  for (int i = 0; i < result->nodesetval->nodeNr; ++i) {
    xmlNode *node = result->nodesetval->nodeTab[i];
    if (node != lone.element() && isOfTree(node))
      nodes->push_back(node);
  }
  return status::kOk;
}

} // namespace wrt::components
