#include "platform/linux/components/xml/XmlTree.h"

#include <algorithm>
#include <libxml/parser.h>
#include <libxml/xpath.h>
#include <libxml/xpathInternals.h>
#include <utility>

namespace wrt::components {
namespace {

const xmlChar *chars(const std::string &text) {
  return reinterpret_cast<const xmlChar *>(text.c_str());
}

std::string text(const xmlChar *chars) {
  return chars == nullptr ? std::string() : reinterpret_cast<const char *>(chars);
}

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

void setNodeValue(xmlNode *node, const std::string &value) {
  if (node->type != XML_ATTRIBUTE_NODE) {
    // This sets the text as it is, for these kinds of nodes.
    xmlNodeSetContent(node, chars(value));
    return;
  }
  auto *attribute = reinterpret_cast<xmlAttr *>(node);
  xmlFreeNodeList(std::exchange(attribute->children, nullptr));
  attribute->last = nullptr;
  xmlNode *content = xmlNewDocText(node->doc, chars(value));
  content->parent = node;
  attribute->children = attribute->last = content;
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

std::vector<xmlNode *> elementsByName(xmlNode *node, const std::string &name) {
  std::vector<xmlNode *> found;
  visitElements(node, [&](xmlNode *element) {
    if (name == "*" || nodeName(element) == name)
      found.push_back(element);
  });
  return found;
}

xmlNode *elementById(xmlNode *document, const std::string &id) {
  xmlAttr *attribute = xmlGetID(reinterpret_cast<xmlDoc *>(document), chars(id));
  return attribute == nullptr ? nullptr : attribute->parent;
}

std::string serialize(xmlNode *node) {
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
    // Namespaces are copies made for this result.
    if (node->type != XML_NAMESPACE_DECL)
      nodes->push_back(node);
  }
  return status::kOk;
}

} // namespace wrt::components
