#include "platform/linux/components/xml/XmlTree.h"

#include "platform/linux/components/xml/XmlChars.h"
#include "platform/linux/components/xml/XmlNamespaces.h"

#include <algorithm>
#include <strings.h>

namespace wrt::components {
namespace {

bool canHaveChildren(const xmlNode *node) {
  return node->type == XML_ELEMENT_NODE || node->type == XML_DOCUMENT_NODE ||
         node->type == XML_DOCUMENT_FRAG_NODE;
}

bool canBeChild(const xmlNode *node) {
  return isCharacterData(node) || node->type == XML_ELEMENT_NODE || node->type == XML_PI_NODE ||
         node->type == XML_ENTITY_REF_NODE;
}

bool isWithin(const xmlNode *node, const xmlNode *ancestor) {
  for (; node != nullptr; node = node->parent) {
    if (node == ancestor)
      return true;
  }
  return false;
}

int depthOf(const xmlNode *node) {
  int depth = 0;
  for (; node != nullptr; node = node->parent)
    depth += node->type == XML_ELEMENT_NODE;
  return depth;
}

/// The number of levels of elements from `node` down.
int heightOf(const xmlNode *node) {
  int below = 0;
  for (const xmlNode *child : childrenOf(node))
    below = std::max(below, heightOf(child));
  return below + (node->type == XML_ELEMENT_NODE);
}

/// Links without joining neighbouring texts, which the library's own functions do.
void link(xmlNode *parent, xmlNode *child, xmlNode *reference) {
  child->parent = parent;
  child->next = reference;
  child->prev = reference != nullptr ? reference->prev : parent->last;
  (child->prev != nullptr ? child->prev->next : parent->children) = child;
  (reference != nullptr ? reference->prev : parent->last) = child;
  bindNamespaces(child);
}

std::vector<xmlNode *> insertedNodes(xmlNode *child) {
  return child->type == XML_DOCUMENT_FRAG_NODE ? childrenOf(child) : std::vector{child};
}

bool isNCName(const std::string &name) {
  return name != kNoText && xmlValidateNCName(chars(name), 0) == 0;
}

/// Whether `uri`, null for names that are taken as they are, is none for a name with that prefix.
bool lacksNamespace(const std::string *uri, const std::string &prefix) {
  return uri != nullptr && (*uri == kNoText || (uri->empty() && !prefix.empty()));
}

void freeLoose(xmlNode *node) {
  if (node->type == XML_ATTRIBUTE_NODE)
    xmlFreeProp(reinterpret_cast<xmlAttr *>(node));
  else
    xmlFreeNode(node);
}

} // namespace

void detachReferences(xmlNode *node) {
  if (node->type == XML_ENTITY_REF_NODE)
    node->children = node->last = nullptr;
  for (xmlNode *attribute : attributesOf(node))
    detachReferences(attribute);
  for (xmlNode *child : childrenOf(node))
    detachReferences(child);
}

XmlTree::XmlTree() : document_(xmlNewDoc(chars("1.0"))) { document_->standalone = kNoDeclaration; }

XmlTree::~XmlTree() {
  for (xmlNode *node : loose_)
    freeLoose(node);
  xmlFreeDoc(document_);
}

xmlNode *XmlTree::adopt(xmlNode *node) {
  if (node != nullptr)
    loose_.insert(node);
  return node;
}

xmlNode *XmlTree::createElement(const std::string *uri, const std::string &qualifiedName) {
  const auto [prefix, name] = splitName(qualifiedName);
  if (!isName(qualifiedName) || prefix == "xmlns" || lacksNamespace(uri, prefix))
    return nullptr;
  if (uri == nullptr || uri->empty())
    return adopt(xmlNewDocNode(document_, nullptr, chars(qualifiedName), nullptr));
  if (prefix == "xml" || *uri == kXmlNamespace)
    return nullptr;
  xmlNode *node = xmlNewDocNode(document_, nullptr, chars(name), nullptr);
  xmlSetNs(node, xmlNewNs(node, chars(*uri), prefix.empty() ? nullptr : chars(prefix)));
  return adopt(node);
}

xmlNode *XmlTree::createAttribute(const std::string *uri, const std::string &qualifiedName) {
  const auto [prefix, name] = splitName(qualifiedName);
  if (!isName(qualifiedName) || declaredPrefix(qualifiedName) || lacksNamespace(uri, prefix))
    return nullptr;
  if (uri == nullptr || uri->empty())
    return adopt(
        reinterpret_cast<xmlNode *>(xmlNewDocProp(document_, chars(qualifiedName), nullptr)));
  if (prefix.empty() || (prefix == "xml") != (*uri == kXmlNamespace))
    return nullptr;
  xmlAttr *attribute = xmlNewDocProp(document_, chars(name), nullptr);
  // Namespaces that no element declares yet hang on the document, behind that of `xml`.
  attribute->ns = xmlSearchNs(document_, document(), chars("xml"));
  if (prefix != "xml") {
    while (attribute->ns->next != nullptr)
      attribute->ns = attribute->ns->next;
    attribute->ns = attribute->ns->next = xmlNewNs(nullptr, chars(*uri), chars(prefix));
  }
  return adopt(reinterpret_cast<xmlNode *>(attribute));
}

xmlNode *XmlTree::createText(xmlElementType type, const std::string &content) {
  if (!canHold(type, content))
    return nullptr;
  switch (type) {
  case XML_TEXT_NODE:
    return adopt(xmlNewDocText(document_, chars(content)));
  case XML_CDATA_SECTION_NODE:
    return adopt(xmlNewCDataBlock(document_, chars(content), static_cast<int>(content.size())));
  default:
    return adopt(xmlNewDocComment(document_, chars(content)));
  }
}

xmlNode *XmlTree::createProcessingInstruction(const std::string &target, const std::string &data) {
  if (!isNCName(target) || strcasecmp(target.c_str(), "xml") == 0 || !canHold(XML_PI_NODE, data))
    return nullptr;
  return adopt(xmlNewDocPI(document_, chars(target), chars(data)));
}

xmlNode *XmlTree::createEntityReference(const std::string &name) {
  if (!isNCName(name))
    return nullptr;
  xmlNode *reference = xmlNewReference(document_, chars(name));
  detachReferences(reference);
  return adopt(reference);
}

xmlNode *XmlTree::createFragment() { return adopt(xmlNewDocFragment(document_)); }

xmlNode *XmlTree::copy(xmlNode *node, bool deep) {
  if (node->type == XML_DOCUMENT_NODE || node->type == XML_DTD_NODE)
    return nullptr;
  if (node->type == XML_ATTRIBUTE_NODE) {
    // The library's own copy of one by itself has no namespace.
    const auto uri = namespaceUri(node);
    xmlNode *attribute = createAttribute(uri ? &*uri : nullptr, nodeName(node));
    setValue(attribute, *nodeValue(node));
    return attribute;
  }
  // 1 copies everything, 2 an element with its attributes alone.
  xmlNode *copied = xmlDocCopyNode(node, document_, deep ? 1 : 2);
  detachReferences(copied);
  bindNamespaces(copied);
  return adopt(copied);
}

void XmlTree::unlink(xmlNode *node) {
  xmlUnlinkNode(node);
  bindNamespaces(node);
  loose_.insert(node);
}

void XmlTree::move(xmlNode *parent, const std::vector<xmlNode *> &nodes, xmlNode *reference) {
  for (xmlNode *node : nodes) {
    if (node == reference)
      continue;
    xmlUnlinkNode(node);
    loose_.erase(node);
    link(parent, node, reference);
  }
}

/// Whether `nodes`, which are `child` or its children, may go before `reference` when `old` goes.
bool XmlTree::mayInsert(const xmlNode *parent, const xmlNode *child,
                        const std::vector<xmlNode *> &nodes, const xmlNode *reference,
                        const xmlNode *old) const {
  if (child->doc != document_ || !canHaveChildren(parent) || isWithin(parent, child) ||
      depthOf(parent) + heightOf(child) > kMaximumXmlDepth ||
      !std::ranges::all_of(nodes, canBeChild))
    return false;
  if (reference != nullptr &&
      (reference->parent != parent || reference->type == XML_ATTRIBUTE_NODE))
    return false;
  if (parent->type != XML_DOCUMENT_NODE)
    return true;
  // A document has one element, behind its type, and no text.
  const auto isElement = [](const xmlNode *node) { return node->type == XML_ELEMENT_NODE; };
  for (const xmlNode *node : nodes) {
    if (!isElement(node) && node->type != XML_COMMENT_NODE && node->type != XML_PI_NODE)
      return false;
  }
  const auto elements = std::ranges::count_if(nodes, isElement);
  const xmlNode *present = root();
  const bool stays =
      present != nullptr && present != old && std::ranges::find(nodes, present) == nodes.end();
  if (elements + stays > 1)
    return false;
  for (; elements != 0 && reference != nullptr; reference = reference->next) {
    if (reference->type == XML_DTD_NODE && reference != old)
      return false;
  }
  return true;
}

HRESULT XmlTree::insert(xmlNode *parent, xmlNode *child, xmlNode *reference) {
  const auto nodes = insertedNodes(child);
  if (!mayInsert(parent, child, nodes, reference, nullptr))
    return status::kInvalidArgument;
  move(parent, nodes, reference);
  return status::kOk;
}

HRESULT XmlTree::replace(xmlNode *parent, xmlNode *child, xmlNode *old) {
  const auto nodes = insertedNodes(child);
  if (!mayInsert(parent, child, nodes, old, old))
    return status::kInvalidArgument;
  if (child == old)
    return status::kOk;
  move(parent, nodes, old);
  unlink(old);
  return status::kOk;
}

HRESULT XmlTree::remove(xmlNode *parent, xmlNode *child) {
  if (child->parent != parent || child->type == XML_ATTRIBUTE_NODE)
    return status::kInvalidArgument;
  unlink(child);
  return status::kOk;
}

HRESULT XmlTree::setAttributeNode(xmlNode *element, xmlNode *attribute, xmlNode **old) {
  *old = nullptr;
  if (attribute->doc != document_ || attribute->type != XML_ATTRIBUTE_NODE)
    return status::kInvalidArgument;
  if (attribute->parent == element)
    return status::kOk;
  if (attribute->parent != nullptr)
    return status::kInvalidArgument;
  const auto uri = namespaceUri(attribute);
  if (uri)
    *old = findAttribute(element, *uri, text(attribute->name));
  // One without a namespace may look the same.
  if (xmlNode *alike = findAttribute(element, nodeName(attribute));
      *old == nullptr && alike != nullptr && !(uri && namespaceUri(alike)))
    *old = alike;
  if (*old != nullptr)
    unlink(*old);
  loose_.erase(attribute);
  auto *property = reinterpret_cast<xmlAttr *>(attribute);
  property->parent = element;
  xmlAttr **end = &element->properties;
  for (; *end != nullptr; end = &(*end)->next)
    property->prev = *end;
  *end = property;
  bindNamespaces(element);
  return status::kOk;
}

HRESULT XmlTree::removeAttributeNode(xmlNode *element, xmlNode *attribute) {
  if (attribute->type != XML_ATTRIBUTE_NODE || attribute->parent != element)
    return status::kInvalidArgument;
  unlink(attribute);
  return status::kOk;
}

HRESULT XmlTree::setAttribute(xmlNode *element, const std::string *uri,
                              const std::string &qualifiedName, const std::string &value) {
  if (!canHold(XML_ATTRIBUTE_NODE, value))
    return status::kInvalidArgument;
  if (const auto prefix = declaredPrefix(qualifiedName))
    return declareNamespace(element, *prefix, value);
  if (lacksNamespace(uri, splitName(qualifiedName).first))
    return status::kInvalidArgument;
  xmlNode *attribute = uri == nullptr
                           ? findAttribute(element, qualifiedName)
                           : findAttribute(element, *uri, splitName(qualifiedName).second);
  if (attribute == nullptr) {
    attribute = createAttribute(uri, qualifiedName);
    if (attribute == nullptr)
      return status::kInvalidArgument;
    xmlNode *old = nullptr;
    setAttributeNode(element, attribute, &old);
  }
  return setValue(attribute, value);
}

HRESULT XmlTree::removeAttribute(xmlNode *element, const std::string *uri,
                                 const std::string &name) {
  xmlNode *attribute =
      uri == nullptr ? findAttribute(element, name) : findAttribute(element, *uri, name);
  if (attribute != nullptr)
    return removeAttributeNode(element, attribute);
  // Names may use what is declared. What is not there need not be removed.
  const auto prefix = declaredPrefix(name);
  return prefix && findDeclaration(element, *prefix) != nullptr ? status::kInvalidArgument
                                                                : status::kOk;
}

HRESULT XmlTree::setValue(xmlNode *node, const std::string &value) {
  if (!canHold(node->type, value))
    return status::kInvalidArgument;
  if (node->type == XML_ATTRIBUTE_NODE) {
    // Its first text stays the same node, as somebody may hold it; so do the others, outside.
    const auto content = childrenOf(node);
    const bool keepsFirst = !content.empty() && content.front()->type == XML_TEXT_NODE;
    for (xmlNode *child : content) {
      if (!keepsFirst || child != content.front())
        unlink(child);
    }
    if (!keepsFirst) {
      link(node, xmlNewDocText(document_, chars(value)), nullptr);
      return status::kOk;
    }
    node = content.front();
  }
  // This sets the text as it is, for these kinds of nodes.
  xmlNodeSetContent(node, chars(value));
  return status::kOk;
}

HRESULT XmlTree::setText(xmlNode *node, const std::string &text) {
  if (nodeValue(node))
    return setValue(node, text);
  if (!canHold(XML_TEXT_NODE, text) || !canHaveChildren(node) || node->type == XML_DOCUMENT_NODE)
    return status::kInvalidArgument;
  for (xmlNode *child : childrenOf(node))
    unlink(child);
  if (!text.empty())
    link(node, xmlNewDocText(document_, chars(text)), nullptr);
  return status::kOk;
}

void XmlTree::normalize(xmlNode *node) {
  xmlNode *previous = nullptr;
  for (xmlNode *child : childrenOf(node)) {
    if (child->type == XML_TEXT_NODE && (previous != nullptr || xmlStrlen(child->content) == 0)) {
      if (previous != nullptr)
        xmlNodeAddContent(previous, child->content);
      unlink(child);
      continue;
    }
    previous = child->type == XML_TEXT_NODE ? child : nullptr;
    if (child->type == XML_ELEMENT_NODE)
      normalize(child);
  }
}

} // namespace wrt::components
