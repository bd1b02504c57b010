#include "platform/linux/components/xml/XmlTree.h"

#include <algorithm>
#include <libxml/parser.h>
#include <utility>

namespace wrt::components {
namespace {

const xmlChar *chars(const std::string &text) {
  return reinterpret_cast<const xmlChar *>(text.c_str());
}

std::pair<std::string, std::string> splitName(const std::string &qualifiedName) {
  const size_t colon = qualifiedName.find(':');
  if (colon == qualifiedName.npos)
    return {"", qualifiedName};
  return {qualifiedName.substr(0, colon), qualifiedName.substr(colon + 1)};
}

bool isBlank(std::string_view text) { return text.find_first_not_of(" \t\r\n") == text.npos; }

HRESULT parseStatus(int error) {
  switch (error) {
  case XML_ERR_TAG_NAME_MISMATCH:
  case XML_ERR_TAG_NOT_FINISHED:
    return kXmlEndTagMismatch;
  case XML_ERR_NO_MEMORY:
    return status::kOutOfMemory;
  default:
    return kXmlInvalid;
  }
}

bool canHaveChildren(const xmlNode *node) {
  return node->type == XML_ELEMENT_NODE || node->type == XML_DOCUMENT_NODE ||
         node->type == XML_DOCUMENT_FRAG_NODE;
}

bool isWithin(const xmlNode *node, const xmlNode *ancestor) {
  for (; node != nullptr; node = node->parent) {
    if (node == ancestor)
      return true;
  }
  return false;
}

/// Links without joining neighbouring texts, which the library's own functions do.
void link(xmlNode *parent, xmlNode *child, xmlNode *reference) {
  child->parent = parent;
  child->next = reference;
  child->prev = reference != nullptr ? reference->prev : parent->last;
  (child->prev != nullptr ? child->prev->next : parent->children) = child;
  (reference != nullptr ? reference->prev : parent->last) = child;
  if (child->type == XML_ELEMENT_NODE)
    xmlReconciliateNs(child->doc, child);
}

void freeLoose(xmlNode *node) {
  if (node->type == XML_ATTRIBUTE_NODE)
    xmlFreeProp(reinterpret_cast<xmlAttr *>(node));
  else
    xmlFreeNode(node);
}

} // namespace

XmlTree::XmlTree() : document_(xmlNewDoc(chars("1.0"))) { document_->standalone = kNoDeclaration; }

XmlTree::~XmlTree() {
  for (xmlNode *node : loose_)
    freeLoose(node);
  xmlFreeDoc(document_);
}

HRESULT XmlTree::parse(std::string_view text, bool detect, std::shared_ptr<XmlTree> *tree) {
  if (text.size() > INT32_MAX)
    return status::kOutOfMemory;
  // Entity references stay nodes: substituting them is what would read external ones.
  constexpr int kOptions = XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING;
  const std::unique_ptr<xmlParserCtxt, decltype(&xmlFreeParserCtxt)> context(xmlNewParserCtxt(),
                                                                             xmlFreeParserCtxt);
  if (context == nullptr)
    return status::kOutOfMemory;
  xmlDoc *document = xmlCtxtReadMemory(context.get(), text.data(), static_cast<int>(text.size()),
                                       nullptr, detect ? nullptr : "UTF-8", kOptions);
  if (document == nullptr)
    return isBlank(text) ? kXmlMissingRoot : parseStatus(context->errNo);
  *tree = std::make_shared<XmlTree>();
  xmlFreeDoc(std::exchange((*tree)->document_, document));
  return status::kOk;
}

xmlNode *XmlTree::adopt(xmlNode *node) {
  if (node != nullptr)
    loose_.insert(node);
  return node;
}

xmlNode *XmlTree::createElement(const std::string *uri, const std::string &qualifiedName) {
  if (xmlValidateQName(chars(qualifiedName), 0) != 0)
    return nullptr;
  const auto [prefix, name] = splitName(qualifiedName);
  if (uri == nullptr || uri->empty())
    return adopt(xmlNewDocNode(document_, nullptr, chars(qualifiedName), nullptr));
  xmlNode *node = xmlNewDocNode(document_, nullptr, chars(name), nullptr);
  xmlSetNs(node, xmlNewNs(node, chars(*uri), prefix.empty() ? nullptr : chars(prefix)));
  return adopt(node);
}

xmlNode *XmlTree::createAttribute(const std::string *uri, const std::string &qualifiedName) {
  if (xmlValidateQName(chars(qualifiedName), 0) != 0)
    return nullptr;
  const auto [prefix, name] = splitName(qualifiedName);
  if (uri == nullptr || uri->empty())
    return adopt(
        reinterpret_cast<xmlNode *>(xmlNewDocProp(document_, chars(qualifiedName), nullptr)));
  if (prefix.empty())
    return nullptr;
  xmlAttr *attribute = xmlNewDocProp(document_, chars(name), nullptr);
  // Namespaces that no element declares yet hang on the document, behind that of `xml`.
  xmlNs *last = xmlSearchNs(document_, document(), chars("xml"));
  while (last->next != nullptr)
    last = last->next;
  xmlNs *space = last->next = xmlNewNs(nullptr, chars(*uri), chars(prefix));
  attribute->ns = space;
  return adopt(reinterpret_cast<xmlNode *>(attribute));
}

xmlNode *XmlTree::createText(xmlElementType type, const std::string &content) {
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
  if (xmlValidateNCName(chars(target), 0) != 0)
    return nullptr;
  return adopt(xmlNewDocPI(document_, chars(target), chars(data)));
}

xmlNode *XmlTree::createEntityReference(const std::string &name) {
  if (xmlValidateNCName(chars(name), 0) != 0)
    return nullptr;
  return adopt(xmlNewReference(document_, chars(name)));
}

xmlNode *XmlTree::createFragment() { return adopt(xmlNewDocFragment(document_)); }

xmlNode *XmlTree::copy(xmlNode *node, bool deep) {
  // 1 copies everything, 2 an element with its attributes alone.
  return adopt(xmlDocCopyNode(node, document_, deep ? 1 : 2));
}

void XmlTree::unlink(xmlNode *node) {
  xmlUnlinkNode(node);
  loose_.insert(node);
}

HRESULT XmlTree::insert(xmlNode *parent, xmlNode *child, xmlNode *reference) {
  if (child->doc != document_ || !canHaveChildren(parent) || isWithin(parent, child) ||
      child->type == XML_ATTRIBUTE_NODE || (reference != nullptr && reference->parent != parent))
    return status::kInvalidArgument;
  const std::vector<xmlNode *> added =
      child->type == XML_DOCUMENT_FRAG_NODE ? childrenOf(child) : std::vector<xmlNode *>{child};
  if (parent->type == XML_DOCUMENT_NODE) {
    // A document has one element and no text.
    for (xmlNode *node : added) {
      const bool second = node->type == XML_ELEMENT_NODE && root() != nullptr && root() != node;
      if (second || node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE)
        return status::kInvalidArgument;
    }
  }
  for (xmlNode *node : added) {
    if (node == reference)
      continue;
    xmlUnlinkNode(node);
    loose_.erase(node);
    link(parent, node, reference);
  }
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
  const std::string name = reinterpret_cast<const char *>(attribute->name);
  *old = uri ? findAttribute(element, *uri, name) : findAttribute(element, nodeName(attribute));
  if (*old != nullptr)
    unlink(*old);
  loose_.erase(attribute);
  auto *property = reinterpret_cast<xmlAttr *>(attribute);
  property->parent = element;
  xmlAttr **end = &element->properties;
  for (; *end != nullptr; end = &(*end)->next)
    property->prev = *end;
  *end = property;
  xmlReconciliateNs(document_, element);
  return status::kOk;
}

HRESULT XmlTree::removeAttributeNode(xmlNode *element, xmlNode *attribute) {
  if (attribute->type != XML_ATTRIBUTE_NODE || attribute->parent != element)
    return status::kInvalidArgument;
  unlink(attribute);
  return status::kOk;
}

void XmlTree::setText(xmlNode *node, const std::string &text) {
  for (xmlNode *child : childrenOf(node))
    unlink(child);
  if (!text.empty())
    link(node, xmlNewDocText(document_, chars(text)), nullptr);
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
