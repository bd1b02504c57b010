#include "platform/linux/components/xml/XmlNodeObject.h"

namespace wrt::components {
namespace {

/// A namespace as members take it: a boxed string, or null for none.
std::string uriOf(abi::IInspectable *uri) { return encodeUtf8(unboxText(uri).value_or(u"")); }

/// Windows.Data.Xml.Dom.XmlElement.
class XmlElement final : public XmlNodeObject<abi::IXmlElement> {
public:
  explicit XmlElement(NodeRef node)
      : XmlNodeObject(std::move(node), u"Windows.Data.Xml.Dom.XmlElement") {}

  HRESULT WRT_ABI get_TagName(HSTRING *name) override { return get_NodeName(name); }

  HRESULT WRT_ABI GetAttribute(HSTRING name, HSTRING *value) override {
    return valueOf([&](xmlNode *self) { return findAttribute(self, utf8(name)); }, value);
  }
  HRESULT WRT_ABI GetAttributeNS(abi::IInspectable *uri, HSTRING name, HSTRING *value) override {
    return valueOf([&](xmlNode *self) { return findAttribute(self, uriOf(uri), utf8(name)); },
                   value);
  }
  HRESULT WRT_ABI SetAttribute(HSTRING name, HSTRING value) override {
    return set([&](xmlNode *self) { return findAttribute(self, utf8(name)); }, nullptr, name,
               value);
  }
  HRESULT WRT_ABI SetAttributeNS(abi::IInspectable *uri, HSTRING name, HSTRING value) override {
    const std::string space = uriOf(uri), whole = utf8(name);
    return set(
        [&](xmlNode *self) {
          return findAttribute(self, space, whole.substr(whole.find(':') + 1));
        },
        &space, name, value);
  }
  HRESULT WRT_ABI RemoveAttribute(HSTRING name) override {
    return ask(
        [&](const NodeRef &self) { return drop(self, findAttribute(self.node, utf8(name))); });
  }
  HRESULT WRT_ABI RemoveAttributeNS(abi::IInspectable *uri, HSTRING name) override {
    return ask([&](const NodeRef &self) {
      return drop(self, findAttribute(self.node, uriOf(uri), utf8(name)));
    });
  }

  HRESULT WRT_ABI GetAttributeNode(HSTRING name, abi::IXmlAttribute **result) override {
    return nodeFor([&](xmlNode *self) { return findAttribute(self, utf8(name)); }, result);
  }
  HRESULT WRT_ABI GetAttributeNodeNS(abi::IInspectable *uri, HSTRING name,
                                     abi::IXmlAttribute **result) override {
    return nodeFor([&](xmlNode *self) { return findAttribute(self, uriOf(uri), utf8(name)); },
                   result);
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
  HRESULT valueOf(Find find, HSTRING *value) {
    return ask([&](const NodeRef &self) {
      xmlNode *attribute = find(self.node);
      return giveText(attribute == nullptr ? "" : *nodeValue(attribute), value);
    });
  }
  template <class Find>
  HRESULT nodeFor(Find find, abi::IXmlAttribute **result) {
    NodeRef found;
    ask([&](const NodeRef &self) {
      found = {self.tree, find(self.node)};
      return status::kOk;
    });
    return giveNode(std::move(found), result);
  }
  template <class Find>
  HRESULT set(Find find, const std::string *uri, HSTRING name, HSTRING value) {
    return ask([&](const NodeRef &self) {
      xmlNode *attribute = find(self.node);
      if (attribute == nullptr) {
        attribute = self.tree->createAttribute(uri, utf8(name));
        xmlNode *old = nullptr;
        if (attribute == nullptr)
          return status::kInvalidArgument;
        self.tree->setAttributeNode(self.node, attribute, &old);
      }
      setNodeValue(attribute, utf8(value));
      return status::kOk;
    });
  }
  static HRESULT drop(const NodeRef &self, xmlNode *attribute) {
    // What is not there need not be removed.
    return attribute == nullptr ? status::kOk
                                : self.tree->removeAttributeNode(self.node, attribute);
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
      if (status >= 0)
        setNodeValue(self.node, encodeUtf8(text));
      return status;
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
    const HRESULT status = this->edit([&](std::u16string &text) {
      if (offset > text.size())
        return status::kInvalidArgument;
      // The tree is locked already.
      const NodeRef self = this->nodeRef();
      second = {self.tree, self.tree->createText(self.node->type, encodeUtf8(text.substr(offset)))};
      text.resize(offset);
      return self.node->parent == nullptr
                 ? status::kOk
                 : self.tree->insert(self.node->parent, second.node, self.node->next);
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
