#include "platform/linux/components/xml/XmlNodeObject.h"

namespace wrt::components {
namespace {

/// A namespace as members take it: a boxed string, or null for none.
std::string uriOf(abi::IInspectable *uri) { return xmlText(unboxText(uri).value_or(u"")); }

/// Windows.Data.Xml.Dom.XmlElement.
class XmlElement final : public XmlNodeObject<abi::IXmlElement> {
public:
  explicit XmlElement(NodeRef node)
      : XmlNodeObject(std::move(node), u"Windows.Data.Xml.Dom.XmlElement") {}

  HRESULT WRT_ABI get_TagName(HSTRING *name) override { return get_NodeName(name); }

  HRESULT WRT_ABI GetAttribute(HSTRING name, HSTRING *value) override {
    return ask([&](const NodeRef &self) {
      return giveText(attributeValue(self.node, utf8(name)), value);
    });
  }
  HRESULT WRT_ABI GetAttributeNS(abi::IInspectable *uri, HSTRING name, HSTRING *value) override {
    const std::string space = uriOf(uri);
    return ask([&](const NodeRef &self) {
      xmlNode *attribute = findAttribute(self.node, space, utf8(name));
      return giveText(attribute == nullptr ? "" : *nodeValue(attribute), value);
    });
  }
  HRESULT WRT_ABI SetAttribute(HSTRING name, HSTRING value) override {
    return ask([&](const NodeRef &self) {
      return self.tree->setAttribute(self.node, nullptr, utf8(name), utf8(value));
    });
  }
  HRESULT WRT_ABI SetAttributeNS(abi::IInspectable *uri, HSTRING name, HSTRING value) override {
    const std::string space = uriOf(uri);
    return ask([&](const NodeRef &self) {
      return self.tree->setAttribute(self.node, &space, utf8(name), utf8(value));
    });
  }
  HRESULT WRT_ABI RemoveAttribute(HSTRING name) override {
    return ask([&](const NodeRef &self) {
      return self.tree->removeAttribute(self.node, nullptr, utf8(name));
    });
  }
  HRESULT WRT_ABI RemoveAttributeNS(abi::IInspectable *uri, HSTRING name) override {
    const std::string space = uriOf(uri);
    return ask([&](const NodeRef &self) {
      return self.tree->removeAttribute(self.node, &space, utf8(name));
    });
  }

  HRESULT WRT_ABI GetAttributeNode(HSTRING name, abi::IXmlAttribute **result) override {
    return nodeFor([&](xmlNode *self) { return findAttribute(self, utf8(name)); }, result);
  }
  HRESULT WRT_ABI GetAttributeNodeNS(abi::IInspectable *uri, HSTRING name,
                                     abi::IXmlAttribute **result) override {
    const std::string space = uriOf(uri);
    return nodeFor([&](xmlNode *self) { return findAttribute(self, space, utf8(name)); }, result);
  }
  HRESULT WRT_ABI SetAttributeNode(abi::IXmlAttribute *attribute,
                                   abi::IXmlAttribute **result) override {
    const NodeRef added = nodeOf(attribute);
    NodeRef old;
    const HRESULT status = ask([&](const NodeRef &self) {
      if (added.tree != self.tree)
        return status::kInvalidArgument;
      old.tree = self.tree;
      return self.tree->setAttributeNode(self.node, added.node, &old.node);
    });
    const HRESULT given = giveNode(old, result);
    return status < 0 ? status : given;
  }
  HRESULT WRT_ABI SetAttributeNodeNS(abi::IXmlAttribute *attribute,
                                     abi::IXmlAttribute **result) override {
    return SetAttributeNode(attribute, result);
  }
  HRESULT WRT_ABI RemoveAttributeNode(abi::IXmlAttribute *attribute,
                                      abi::IXmlAttribute **result) override {
    const NodeRef removed = nodeOf(attribute);
    const HRESULT status = ask([&](const NodeRef &self) {
      return removed.tree == self.tree ? self.tree->removeAttributeNode(self.node, removed.node)
                                       : status::kInvalidArgument;
    });
    const HRESULT given = giveNode(status < 0 ? NodeRef() : removed, result);
    return status < 0 ? status : given;
  }

  HRESULT WRT_ABI GetElementsByTagName(HSTRING name, abi::IXmlNodeList **result) override {
    return ask([&](const NodeRef &self) {
      return giveNodes(self.tree, elementsByName(self.node, utf8(name)), result);
    });
  }

private:
  template <class Find>
  HRESULT nodeFor(Find find, abi::IXmlAttribute **result) {
    NodeRef found;
    ask([&](const NodeRef &self) {
      found = {self.tree, find(self.node)};
      return status::kOk;
    });
    return giveNode(std::move(found), result);
  }
};

/// Adds the members of texts.
template <class Default, class... Others>
class CharacterData : public XmlNodeObject<Default, Others...> {
public:
  using XmlNodeObject<Default, Others...>::XmlNodeObject;

  HRESULT WRT_ABI get_Data(HSTRING *data) override {
    return this->ask([&](const NodeRef &self) { return giveText(*nodeValue(self.node), data); });
  }
  HRESULT WRT_ABI put_Data(HSTRING data) override {
    return edit([&](std::u16string &text) {
      text = viewOf(data);
      return status::kOk;
    });
  }
  HRESULT WRT_ABI get_Length(unsigned *length) override {
    if (length == nullptr)
      return status::kPointer;
    return this->ask([&](const NodeRef &self) {
      *length = static_cast<unsigned>(toUtf16(*nodeValue(self.node)).size());
      return status::kOk;
    });
  }
  HRESULT WRT_ABI SubstringData(unsigned offset, unsigned count, HSTRING *data) override {
    if (data == nullptr)
      return status::kPointer;
    return this->ask([&](const NodeRef &self) {
      const std::u16string text = toUtf16(*nodeValue(self.node));
      return offset > text.size() ? status::kInvalidArgument
                                  : makeString(text.substr(offset, count), data);
    });
  }
  HRESULT WRT_ABI AppendData(HSTRING data) override {
    return edit([&](std::u16string &text) {
      text += viewOf(data);
      return status::kOk;
    });
  }
  HRESULT WRT_ABI InsertData(unsigned offset, HSTRING data) override {
    return ReplaceData(offset, 0, data);
  }
  HRESULT WRT_ABI DeleteData(unsigned offset, unsigned count) override {
    return ReplaceData(offset, count, nullptr);
  }
  HRESULT WRT_ABI ReplaceData(unsigned offset, unsigned count, HSTRING data) override {
    return edit([&](std::u16string &text) {
      if (offset > text.size())
        return status::kInvalidArgument;
      text.replace(offset, count, viewOf(data));
      return status::kOk;
    });
  }

protected:
  template <class Change>
  HRESULT edit(Change change) {
    return this->ask([&](const NodeRef &self) {
      std::u16string text = toUtf16(*nodeValue(self.node));
      const HRESULT status = change(text);
      return status < 0 ? status : self.tree->setValue(self.node, xmlText(text));
    });
  }
};

/// Adds what can be done to texts and CDATA sections, and not to comments.
template <class Default, class... Others>
class Text final : public CharacterData<Default, Others...> {
public:
  using CharacterData<Default, Others...>::CharacterData;

  HRESULT WRT_ABI SplitText(unsigned offset, abi::IXmlText **result) override {
    NodeRef second;
    const HRESULT status = this->ask([&](const NodeRef &self) {
      const std::u16string text = toUtf16(*nodeValue(self.node));
      const std::string first = xmlText(text.substr(0, offset));
      if (offset > text.size() || first == kNoText)
        return status::kInvalidArgument;
      second = {self.tree, self.tree->createText(self.node->type, xmlText(text.substr(offset)))};
      xmlNode *parent = self.node->parent;
      const HRESULT status =
          parent == nullptr ? status::kOk : self.tree->insert(parent, second.node, self.node->next);
      return status < 0 ? status : self.tree->setValue(self.node, first);
    });
    const HRESULT given = giveNode(status < 0 ? NodeRef() : second, result);
    return status < 0 ? status : given;
  }
};

} // namespace

ComPtr<abi::IXmlNode> makeElement(NodeRef node) { return make<XmlElement>(std::move(node)); }

ComPtr<abi::IXmlNode> makeCharacterData(NodeRef node) {
  switch (node.node->type) {
  case XML_TEXT_NODE:
    return make<Text<abi::IXmlText, abi::IXmlCharacterData>>(std::move(node),
                                                             u"Windows.Data.Xml.Dom.XmlText");
  case XML_CDATA_SECTION_NODE:
    return make<Text<abi::IXmlCDataSection, abi::IXmlText, abi::IXmlCharacterData>>(
        std::move(node), u"Windows.Data.Xml.Dom.XmlCDataSection");
  default:
    return make<CharacterData<abi::IXmlComment, abi::IXmlCharacterData>>(
        std::move(node), u"Windows.Data.Xml.Dom.XmlComment");
  }
}

} // namespace wrt::components
