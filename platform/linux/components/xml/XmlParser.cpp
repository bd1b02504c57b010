#include "platform/linux/components/xml/XmlChars.h"
#include "platform/linux/components/xml/XmlTree.h"

#include <algorithm>
#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <map>
#include <utility>

namespace wrt::components {
namespace {

/// Watches a parser: how much text comes of references to entities, for which the library has a
/// limit of its own that goes with those of depth and length, and whether prefixes are declared,
/// which does not keep it from making a document.
class Watch {
public:
  Watch(xmlParserCtxt *context, size_t documentSize)
      : left_(std::max<size_t>(10 * documentSize, 1'000'000)) {
    context->_private = this;
    context->sax->getEntity = [](void *parser, const xmlChar *name) {
      auto *asking = static_cast<xmlParserCtxt *>(parser);
      return static_cast<Watch *>(asking->_private)->find(asking, name);
    };
    context->sax->serror = [](void *parser, xmlError *error) {
      auto *watch = static_cast<Watch *>(static_cast<xmlParserCtxt *>(parser)->_private);
      // A namespace may be called anything. What is within entities is looked up where they are
      // declared, which is worth a warning to the library.
      if (error->domain == XML_FROM_NAMESPACE && error->level >= XML_ERR_ERROR &&
          error->code != XML_WAR_NS_URI)
        watch->namesAreBound_ = false;
    };
  }
  Watch(const Watch &) = delete;
  Watch &operator=(const Watch &) = delete;

  bool isExpansionExceeded() const { return exceeded_; }
  bool areNamesBound() const { return namesAreBound_; }

private:
  xmlEntity *find(xmlParserCtxt *context, const xmlChar *name) {
    xmlEntity *entity = exceeded_ ? nullptr : xmlSAX2GetEntity(context, name);
    if (entity == nullptr)
      return nullptr;
    const size_t size = sizeOf(context->myDoc, entity);
    if (size <= left_) {
      left_ -= size;
      return entity;
    }
    exceeded_ = true;
    xmlStopParser(context);
    return nullptr;
  }

  /// The size of the text that the entity stands for, or some size beyond the limit.
  size_t sizeOf(xmlDoc *document, const xmlEntity *entity, int depth = 0) {
    constexpr int kMaximumNesting = 40;
    const size_t tooMuch = left_ + 1;
    // Until it is known, for entities that contain themselves.
    const auto [known, isNew] = sizes_.try_emplace(entity, SIZE_MAX);
    if (!isNew || depth > kMaximumNesting)
      return std::min(known->second, tooMuch);
    const std::string content = text(entity->content);
    size_t size = content.size();
    for (size_t from = content.find('&'); from != content.npos && size < tooMuch;
         from = content.find('&', from + 1)) {
      const std::string name = content.substr(from + 1, content.find(';', from) - from - 1);
      if (const xmlEntity *inner = xmlGetDocEntity(document, chars(name)))
        size += sizeOf(document, inner, depth + 1);
    }
    return std::min(known->second = size, tooMuch);
  }

  size_t left_;
  bool exceeded_ = false;
  bool namesAreBound_ = true;
  std::map<const xmlEntity *, size_t> sizes_;
};

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

/// The number of levels of elements below the document. Without recursion, as it may be any.
int depthOf(xmlDoc *document) {
  int depth = 0, deepest = 0;
  const auto *top = reinterpret_cast<const xmlNode *>(document);
  for (const xmlNode *node = top->children; node != nullptr && node != top;) {
    const bool isElement = node->type == XML_ELEMENT_NODE;
    deepest = std::max(deepest, depth + isElement);
    if (isElement && node->children != nullptr) {
      node = node->children;
      ++depth;
      continue;
    }
    while (node != top && node->next == nullptr) {
      node = node->parent;
      --depth;
    }
    if (node != top)
      node = node->next;
  }
  return deepest;
}

/// The library keeps "&" in the names of namespaces as it was written, unlike in other attributes.
void decodeNamespaces(xmlNode *node) {
  if (node->type == XML_ELEMENT_NODE) {
    for (xmlNs *space = node->nsDef; space != nullptr; space = space->next) {
      constexpr std::string_view kKept = "&#38;";
      std::string name = text(space->href);
      for (size_t at = name.find(kKept); at != name.npos; at = name.find(kKept, at + 1))
        name.replace(at, kKept.size(), "&");
      if (name != text(space->href))
        xmlFree(const_cast<xmlChar *>(std::exchange(space->href, xmlStrdup(chars(name)))));
    }
  }
  for (xmlNode *child : childrenOf(node))
    decodeNamespaces(child);
}

} // namespace

HRESULT XmlTree::parse(std::string_view text, bool detect, std::shared_ptr<XmlTree> *tree) {
  if (text.size() > INT32_MAX)
    return status::kOutOfMemory;
  // Entity references stay nodes: substituting them is what would read external ones.
  constexpr int kOptions = XML_PARSE_NONET | XML_PARSE_HUGE;
  const std::unique_ptr<xmlParserCtxt, decltype(&xmlFreeParserCtxt)> context(xmlNewParserCtxt(),
                                                                             xmlFreeParserCtxt);
  if (context == nullptr)
    return status::kOutOfMemory;
  const Watch watch(context.get(), text.size());
  std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(
      xmlCtxtReadMemory(context.get(), text.data(), static_cast<int>(text.size()), nullptr,
                        detect ? nullptr : "UTF-8", kOptions),
      xmlFreeDoc);
  if (watch.isExpansionExceeded())
    return kXmlTooMuchExpansion;
  if (document == nullptr)
    return isBlank(text) ? kXmlMissingRoot : parseStatus(context->errNo);
  if (!watch.areNamesBound())
    return kXmlInvalid;
  if (depthOf(document.get()) > kMaximumXmlDepth)
    return kXmlTooDeep;
  auto *top = reinterpret_cast<xmlNode *>(document.get());
  decodeNamespaces(top);
  detachReferences(top);
  auto made = std::make_shared<XmlTree>();
  xmlFreeDoc(std::exchange(made->document_, document.release()));
  *tree = std::move(made);
  return status::kOk;
}

} // namespace wrt::components
