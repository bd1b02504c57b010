#include "platform/linux/components/xml/XmlNodeObject.h"

#include "platform/linux/components/collections/VectorView.h"

namespace wrt::components {
namespace {

using NodeItem = Ref<abi::IXmlNode>;

Items<NodeItem> wrapAll(const std::shared_ptr<XmlTree> &tree, const std::vector<xmlNode *> &nodes) {
  Items<NodeItem> items;
  for (xmlNode *node : nodes)
    items.push_back(wrapNode({tree, node}));
  return items;
}

/// Windows.Data.Xml.Dom.XmlNodeList: the nodes as they were when they were asked for.
class XmlNodeList final : public VectorViewObject<NodeItem, abi::IXmlNodeList> {
public:
  using VectorViewObject::VectorViewObject;

  HRESULT WRT_ABI get_Length(unsigned *length) override { return get_Size(length); }
  HRESULT WRT_ABI Item(unsigned index, abi::IXmlNode **result) override {
    return GetAt(index, result);
  }

private:
  std::u16string_view runtimeClassName() const override {
    return u"Windows.Data.Xml.Dom.XmlNodeList";
  }
};

/// Windows.Data.Xml.Dom.XmlNamedNodeMap, of which only the list can be used.
class XmlNamedNodeMap final : public VectorViewObject<NodeItem, abi::IXmlNamedNodeMap> {
public:
  using VectorViewObject::VectorViewObject;

private:
  std::u16string_view runtimeClassName() const override {
    return u"Windows.Data.Xml.Dom.XmlNamedNodeMap";
  }
};

} // namespace

NodeRef nodeOf(abi::IUnknown *object) {
  const auto access = ComPtr(object).as<INodeAccess>();
  return access ? access->nodeRef() : NodeRef();
}

HRESULT giveNodes(const std::shared_ptr<XmlTree> &tree, const std::vector<xmlNode *> &nodes,
                  abi::IXmlNodeList **result) {
  return makeInto<XmlNodeList>(result, wrapAll(tree, nodes));
}

HRESULT giveNodeMap(const std::shared_ptr<XmlTree> &tree, const std::vector<xmlNode *> &nodes,
                    abi::IXmlNamedNodeMap **result) {
  return makeInto<XmlNamedNodeMap>(result, wrapAll(tree, nodes));
}

HRESULT giveBoxed(const std::optional<std::string> &text, abi::IInspectable **result) {
  return text ? boxText(toUtf16(*text)).copyTo(result) : ComPtr<abi::IInspectable>().copyTo(result);
}

ComPtr<abi::IXmlNode> wrapNode(NodeRef node) {
  const auto plain = [&]<class Own>(std::u16string_view name) -> ComPtr<abi::IXmlNode> {
    return make<XmlNodeObject<Own>>(std::move(node), name);
  };
  switch (node.node->type) {
  case XML_DOCUMENT_NODE:
    return makeDocument(node.tree);
  case XML_TEXT_NODE:
  case XML_CDATA_SECTION_NODE:
  case XML_COMMENT_NODE:
    return makeCharacterData(std::move(node));
  case XML_ATTRIBUTE_NODE:
    return plain.operator()<abi::IXmlAttribute>(u"Windows.Data.Xml.Dom.XmlAttribute");
  case XML_PI_NODE:
    return plain.operator()<abi::IXmlProcessingInstruction>(
        u"Windows.Data.Xml.Dom.XmlProcessingInstruction");
  case XML_ENTITY_REF_NODE:
    return plain.operator()<abi::IXmlEntityReference>(u"Windows.Data.Xml.Dom.XmlEntityReference");
  case XML_DTD_NODE:
    return plain.operator()<abi::IXmlDocumentType>(u"Windows.Data.Xml.Dom.XmlDocumentType");
  case XML_DOCUMENT_FRAG_NODE:
    return plain.operator()<abi::IXmlDocumentFragment>(u"Windows.Data.Xml.Dom.XmlDocumentFragment");
  default:
    return makeElement(std::move(node));
  }
}

} // namespace wrt::components
