#include "platform/linux/components/xml/XmlChars.h"
#include "platform/linux/components/xml/XmlTree.h"

#include <algorithm>
#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <map>
#include <utility>

namespace wrt::components {
namespace {

/// How much text may come of a document's references to entities. The library has a limit of its
/// own, which goes with those of depth and length.
class ExpansionLimit {
public:
  explicit ExpansionLimit(size_t documentSize)
      : left_(std::max<size_t>(10 * documentSize, 1'000'000)) {}

  bool isExceeded() const { return exceeded_; }

  /// Lets the parser ask this limit for each entity that it comes across.
  void guard(xmlParserCtxt *context) {
    context->_private = this;
    context->sax->getEntity = [](void *parser, const xmlChar *name) {
      auto *asking = static_cast<xmlParserCtxt *>(parser);
      return static_cast<ExpansionLimit *>(asking->_private)->find(asking, name);
    };
  }

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

} // namespace

HRESULT XmlTree::parse(std::string_view text, bool detect, std::shared_ptr<XmlTree> *tree) {
  if (text.size() > INT32_MAX)
    return status::kOutOfMemory;
  // Entity references stay nodes: substituting them is what would read external ones.
  constexpr int kOptions =
      XML_PARSE_NONET | XML_PARSE_NOERROR | XML_PARSE_NOWARNING | XML_PARSE_HUGE;
  const std::unique_ptr<xmlParserCtxt, decltype(&xmlFreeParserCtxt)> context(xmlNewParserCtxt(),
                                                                             xmlFreeParserCtxt);
  if (context == nullptr)
    return status::kOutOfMemory;
  ExpansionLimit limit(text.size());
  limit.guard(context.get());
  std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> document(
      xmlCtxtReadMemory(context.get(), text.data(), static_cast<int>(text.size()), nullptr,
                        detect ? nullptr : "UTF-8", kOptions),
      xmlFreeDoc);
  if (limit.isExceeded())
    return kXmlTooMuchExpansion;
  if (document == nullptr)
    return isBlank(text) ? kXmlMissingRoot : parseStatus(context->errNo);
  if (context->nsWellFormed == 0) // a prefix without a namespace, say
    return kXmlInvalid;
  if (depthOf(document.get()) > kMaximumXmlDepth)
    return kXmlTooDeep;
  auto made = std::make_shared<XmlTree>();
  xmlFreeDoc(std::exchange(made->document_, document.release()));
  *tree = std::move(made);
  return status::kOk;
}

} // namespace wrt::components
