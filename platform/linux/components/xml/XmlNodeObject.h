/// The objects that stand for the nodes of a tree. They are made anew whenever one is asked for:
/// two objects for one node are different objects.
#ifndef WRT_XML_NODE_OBJECT_H
#define WRT_XML_NODE_OBJECT_H

#include "platform/linux/components/foundation/BoxedText.h"
#include "platform/linux/components/foundation/Text.h"
#include "platform/linux/components/xml/XmlChars.h"
#include "platform/linux/components/xml/XmlTree.h"
#include "platform/linux/implement/Implements.h"
#include "platform/linux/implement/StringHolder.h"

#include <abi/Windows.Data.Xml.Dom.abi.h>

#include <algorithm>

namespace wrt::components {

using namespace implement;

/// A node with the tree that keeps it alive.
struct NodeRef {
  std::shared_ptr<XmlTree> tree;
  xmlNode *node = nullptr;
};

/// How objects for nodes find each other's nodes; of no use outside of these files.
struct INodeAccess : abi::IUnknown {
  static constexpr GUID kIid{
      0x5E0D64B9, 0x2C71, 0x4F16, {0xA3, 0x88, 0x9B, 0xD4, 0x17, 0xE6, 0x50, 0xCC}};

  virtual NodeRef nodeRef() const = 0;

protected:
  ~INodeAccess() = default;
};

/// The node behind an object (borrowed), or none.
NodeRef nodeOf(abi::IUnknown *object);

/// A new object of the node's class.
ComPtr<abi::IXmlNode> wrapNode(NodeRef node);

/// Answers an out-parameter with the node as an object; null for none.
template <class Interface>
HRESULT giveNode(NodeRef node, Interface **result) {
  if (result == nullptr)
    return status::kPointer;
  *result = nullptr;
  if (node.node == nullptr)
    return status::kOk;
  *result = wrapNode(std::move(node)).template as<Interface>().detach();
  return *result == nullptr ? status::kNoInterface : status::kOk;
}
HRESULT giveNodes(const std::shared_ptr<XmlTree> &tree, const std::vector<xmlNode *> &nodes,
                  abi::IXmlNodeList **result);
HRESULT giveNodeMap(const std::shared_ptr<XmlTree> &tree, const std::vector<xmlNode *> &nodes,
                    abi::IXmlNamedNodeMap **result);

inline std::string utf8(HSTRING text) { return xmlText(viewOf(text)); }
inline HRESULT giveText(std::string_view text, HSTRING *result) {
  return result == nullptr ? status::kPointer : makeString(toUtf16(text), result);
}
/// Null for no text.
HRESULT giveBoxed(const std::optional<std::string> &text, abi::IInspectable **result);

/// The members of all nodes.
template <class Default, class... Others>
class XmlNodeObject : public Implements<Default, Others..., abi::IXmlNode, abi::IXmlNodeSerializer,
                                        abi::IXmlNodeSelector, INodeAccess> {
public:
  XmlNodeObject(NodeRef node, std::u16string_view className)
      : node_(std::move(node)), className_(className) {}

  NodeRef nodeRef() const override {
    std::lock_guard lock(mutex_);
    return node_;
  }

  HRESULT WRT_ABI get_NodeType(int *type) override {
    if (type == nullptr)
      return status::kPointer;
    // Windows.Data.Xml.Dom.NodeType is the library's but here.
    const xmlElementType own = nodeRef().node->type;
    *type = own == XML_DTD_NODE ? WRTNodeTypeDocumentTypeNode : static_cast<int>(own);
    return status::kOk;
  }
  HRESULT WRT_ABI get_NodeName(HSTRING *name) override {
    return ask([&](const NodeRef &self) { return giveText(nodeName(self.node), name); });
  }
  HRESULT WRT_ABI get_NodeValue(abi::IInspectable **value) override {
    return ask([&](const NodeRef &self) { return giveBoxed(nodeValue(self.node), value); });
  }
  HRESULT WRT_ABI put_NodeValue(abi::IInspectable *value) override {
    const auto text = unboxText(value);
    return ask([&](const NodeRef &self) {
      return text && nodeValue(self.node) ? self.tree->setValue(self.node, xmlText(*text))
                                          : status::kInvalidArgument;
    });
  }
  HRESULT WRT_ABI get_NamespaceUri(abi::IInspectable **uri) override {
    return ask([&](const NodeRef &self) { return giveBoxed(namespaceUri(self.node), uri); });
  }
  HRESULT WRT_ABI get_Prefix(abi::IInspectable **prefix) override {
    return ask([&](const NodeRef &self) { return giveBoxed(prefixOf(self.node), prefix); });
  }
  HRESULT WRT_ABI put_Prefix(abi::IInspectable *) override { return status::kNotImplemented; }
  HRESULT WRT_ABI get_LocalName(abi::IInspectable **name) override {
    return ask([&](const NodeRef &self) {
      const std::string whole = nodeName(self.node);
      return giveBoxed(whole.substr(whole.find(':') + 1), name);
    });
  }

  HRESULT WRT_ABI get_ParentNode(abi::IXmlNode **result) override {
    return near(result, [](xmlNode *node) {
      return node->type == XML_ATTRIBUTE_NODE ? nullptr : node->parent;
    });
  }
  HRESULT WRT_ABI get_FirstChild(abi::IXmlNode **result) override {
    return near(result, [](xmlNode *node) {
      const auto children = childrenOf(node);
      return children.empty() ? nullptr : children.front();
    });
  }
  HRESULT WRT_ABI get_LastChild(abi::IXmlNode **result) override {
    return near(result, [](xmlNode *node) {
      const auto children = childrenOf(node);
      return children.empty() ? nullptr : children.back();
    });
  }
  HRESULT WRT_ABI get_PreviousSibling(abi::IXmlNode **result) override {
    return near(result, [](xmlNode *node) {
      return node->type == XML_ATTRIBUTE_NODE ? nullptr : node->prev;
    });
  }
  HRESULT WRT_ABI get_NextSibling(abi::IXmlNode **result) override {
    return near(result, [](xmlNode *node) {
      return node->type == XML_ATTRIBUTE_NODE ? nullptr : node->next;
    });
  }
  HRESULT WRT_ABI get_ChildNodes(abi::IXmlNodeList **result) override {
    return ask(
        [&](const NodeRef &self) { return giveNodes(self.tree, childrenOf(self.node), result); });
  }
  HRESULT WRT_ABI get_Attributes(abi::IXmlNamedNodeMap **result) override {
    return ask([&](const NodeRef &self) {
      return giveNodeMap(self.tree, attributesOf(self.node), result);
    });
  }
  HRESULT WRT_ABI HasChildNodes(unsigned char *result) override {
    if (result == nullptr)
      return status::kPointer;
    return ask([&](const NodeRef &self) {
      *result = !childrenOf(self.node).empty();
      return status::kOk;
    });
  }
  HRESULT WRT_ABI get_OwnerDocument(abi::IXmlDocument **result) override {
    const NodeRef self = nodeRef();
    const bool isDocument = self.node->type == XML_DOCUMENT_NODE;
    return giveNode({self.tree, isDocument ? nullptr : self.tree->document()}, result);
  }

  HRESULT WRT_ABI InsertBefore(abi::IXmlNode *child, abi::IXmlNode *reference,
                               abi::IXmlNode **result) override {
    const NodeRef added = nodeOf(child), before = nodeOf(reference);
    return change(added, result, [&](const NodeRef &self) {
      return reference == nullptr || before.tree == self.tree
                 ? self.tree->insert(self.node, added.node, before.node)
                 : status::kInvalidArgument;
    });
  }
  HRESULT WRT_ABI AppendChild(abi::IXmlNode *child, abi::IXmlNode **result) override {
    return InsertBefore(child, nullptr, result);
  }
  HRESULT WRT_ABI RemoveChild(abi::IXmlNode *child, abi::IXmlNode **result) override {
    const NodeRef removed = nodeOf(child);
    return change(removed, result,
                  [&](const NodeRef &self) { return self.tree->remove(self.node, removed.node); });
  }
  HRESULT WRT_ABI ReplaceChild(abi::IXmlNode *child, abi::IXmlNode *old,
                               abi::IXmlNode **result) override {
    const NodeRef added = nodeOf(child), removed = nodeOf(old);
    return change(removed, result, [&](const NodeRef &self) {
      return added.tree == self.tree ? self.tree->replace(self.node, added.node, removed.node)
                                     : status::kInvalidArgument;
    });
  }
  HRESULT WRT_ABI CloneNode(unsigned char deep, abi::IXmlNode **result) override {
    NodeRef copy;
    const HRESULT status = ask([&](const NodeRef &self) {
      copy = {self.tree, self.tree->copy(self.node, deep != 0)};
      return copy.node == nullptr ? status::kNotImplemented : status::kOk;
    });
    const HRESULT given = giveNode(copy, result);
    return status < 0 ? status : given;
  }
  HRESULT WRT_ABI Normalize() override {
    return ask([&](const NodeRef &self) {
      self.tree->normalize(self.node);
      return status::kOk;
    });
  }

  HRESULT WRT_ABI GetXml(HSTRING *xml) override {
    return ask([&](const NodeRef &self) { return giveText(serialize(self.node), xml); });
  }
  HRESULT WRT_ABI get_InnerText(HSTRING *text) override {
    return ask([&](const NodeRef &self) { return giveText(innerText(self.node), text); });
  }
  HRESULT WRT_ABI put_InnerText(HSTRING text) override {
    return ask([&](const NodeRef &self) { return self.tree->setText(self.node, utf8(text)); });
  }

  HRESULT WRT_ABI SelectSingleNode(HSTRING xpath, abi::IXmlNode **result) override {
    return SelectSingleNodeNS(xpath, nullptr, result);
  }
  HRESULT WRT_ABI SelectNodes(HSTRING xpath, abi::IXmlNodeList **result) override {
    return SelectNodesNS(xpath, nullptr, result);
  }
  HRESULT WRT_ABI SelectSingleNodeNS(HSTRING xpath, abi::IInspectable *namespaces,
                                     abi::IXmlNode **result) override {
    std::vector<xmlNode *> nodes;
    const NodeRef self = nodeRef();
    const HRESULT status = select(self, xpath, namespaces, &nodes);
    const HRESULT given = giveNode({self.tree, nodes.empty() ? nullptr : nodes.front()}, result);
    return status < 0 ? status : given;
  }
  HRESULT WRT_ABI SelectNodesNS(HSTRING xpath, abi::IInspectable *namespaces,
                                abi::IXmlNodeList **result) override {
    if (result == nullptr)
      return status::kPointer;
    *result = nullptr;
    std::vector<xmlNode *> nodes;
    const NodeRef self = nodeRef();
    const HRESULT status = select(self, xpath, namespaces, &nodes);
    return status < 0 ? status : giveNodes(self.tree, nodes, result);
  }

protected:
  std::u16string_view runtimeClassName() const override { return className_; }

  /// Calls `use` with this node while its tree is locked.
  template <class Use>
  HRESULT ask(Use use) const {
    const NodeRef self = nodeRef();
    std::lock_guard lock(self.tree->mutex);
    return use(self);
  }

  /// The object becomes one for another node.
  void become(NodeRef node) {
    std::lock_guard lock(mutex_);
    std::swap(node_, node);
  }

private:
  template <class Find>
  HRESULT near(abi::IXmlNode **result, Find find) const {
    NodeRef found;
    ask([&](const NodeRef &self) {
      found = {self.tree, find(self.node)};
      return status::kOk;
    });
    return giveNode(std::move(found), result);
  }

  /// Changes this node's children and answers with `named`, which must be of the same tree.
  template <class Change>
  HRESULT change(const NodeRef &named, abi::IXmlNode **result, Change change) {
    if (result == nullptr)
      return status::kPointer;
    *result = nullptr;
    const HRESULT status = ask([&](const NodeRef &self) {
      return named.tree == self.tree ? change(self) : status::kInvalidArgument;
    });
    return status < 0 ? status : giveNode(named, result);
  }

  static HRESULT select(const NodeRef &self, HSTRING xpath, abi::IInspectable *namespaces,
                        std::vector<xmlNode *> *nodes) {
    const std::string declarations = xmlText(unboxText(namespaces).value_or(u""));
    std::lock_guard lock(self.tree->mutex);
    return selectNodes(self.node, utf8(xpath), declarations, nodes);
  }

  mutable std::mutex mutex_; ///< guards `node_`
  NodeRef node_;
  const std::u16string_view className_;
};

/// Makes an object for a document.
ComPtr<abi::IXmlNode> makeDocument(const std::shared_ptr<XmlTree> &tree);
/// Makes an object for an element.
ComPtr<abi::IXmlNode> makeElement(NodeRef node);
/// Makes an object for a text, CDATA section or comment.
ComPtr<abi::IXmlNode> makeCharacterData(NodeRef node);

} // namespace wrt::components

#endif
