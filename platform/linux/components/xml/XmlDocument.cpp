#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/components/storage/StorageTypes.h"
#include "platform/linux/components/xml/XmlNodeObject.h"

namespace wrt::components {
namespace {

constexpr std::u16string_view kName = u"Windows.Data.Xml.Dom.XmlDocument";

/// Windows.Data.Xml.Dom.XmlDocument. Loading gives it another tree; nodes of the one before stay
/// what they are.
class XmlDocument final
    : public XmlNodeObject<abi::IXmlDocument, abi::IXmlDocumentIO, abi::IXmlDocumentIO2> {
public:
  explicit XmlDocument(const std::shared_ptr<XmlTree> &tree)
      : XmlNodeObject({tree, tree->document()}, kName) {}

  HRESULT WRT_ABI get_DocumentElement(abi::IXmlElement **result) override {
    return find(result, [](const NodeRef &self) { return self.tree->root(); });
  }
  HRESULT WRT_ABI get_Doctype(abi::IXmlDocumentType **result) override {
    return find(result, [](const NodeRef &self) {
      const auto *document = reinterpret_cast<const xmlDoc *>(self.node);
      return reinterpret_cast<xmlNode *>(document->intSubset);
    });
  }
  HRESULT WRT_ABI GetElementById(HSTRING id, abi::IXmlElement **result) override {
    return find(result, [&](const NodeRef &self) { return elementById(self.node, utf8(id)); });
  }
  HRESULT WRT_ABI GetElementsByTagName(HSTRING name, abi::IXmlNodeList **result) override {
    return ask([&](const NodeRef &self) {
      return giveNodes(self.tree, elementsByName(self.node, utf8(name)), result);
    });
  }
  HRESULT WRT_ABI get_DocumentUri(HSTRING *uri) override { return giveText("", uri); }

  HRESULT WRT_ABI CreateElement(HSTRING name, abi::IXmlElement **result) override {
    return create(result, [&](XmlTree &tree) { return tree.createElement(nullptr, utf8(name)); });
  }
  HRESULT WRT_ABI CreateElementNS(abi::IInspectable *uri, HSTRING name,
                                  abi::IXmlElement **result) override {
    const std::string space = xmlText(unboxText(uri).value_or(u""));
    return create(result, [&](XmlTree &tree) { return tree.createElement(&space, utf8(name)); });
  }
  HRESULT WRT_ABI CreateAttribute(HSTRING name, abi::IXmlAttribute **result) override {
    return create(result, [&](XmlTree &tree) { return tree.createAttribute(nullptr, utf8(name)); });
  }
  HRESULT WRT_ABI CreateAttributeNS(abi::IInspectable *uri, HSTRING name,
                                    abi::IXmlAttribute **result) override {
    const std::string space = xmlText(unboxText(uri).value_or(u""));
    return create(result, [&](XmlTree &tree) { return tree.createAttribute(&space, utf8(name)); });
  }
  HRESULT WRT_ABI CreateDocumentFragment(abi::IXmlDocumentFragment **result) override {
    return create(result, [](XmlTree &tree) { return tree.createFragment(); });
  }
  HRESULT WRT_ABI CreateTextNode(HSTRING data, abi::IXmlText **result) override {
    return create(result,
                  [&](XmlTree &tree) { return tree.createText(XML_TEXT_NODE, utf8(data)); });
  }
  HRESULT WRT_ABI CreateComment(HSTRING data, abi::IXmlComment **result) override {
    return create(result,
                  [&](XmlTree &tree) { return tree.createText(XML_COMMENT_NODE, utf8(data)); });
  }
  HRESULT WRT_ABI CreateCDataSection(HSTRING data, abi::IXmlCDataSection **result) override {
    return create(
        result, [&](XmlTree &tree) { return tree.createText(XML_CDATA_SECTION_NODE, utf8(data)); });
  }
  HRESULT WRT_ABI CreateProcessingInstruction(HSTRING target, HSTRING data,
                                              abi::IXmlProcessingInstruction **result) override {
    return create(result, [&](XmlTree &tree) {
      return tree.createProcessingInstruction(utf8(target), utf8(data));
    });
  }
  HRESULT WRT_ABI CreateEntityReference(HSTRING name, abi::IXmlEntityReference **result) override {
    return create(result, [&](XmlTree &tree) { return tree.createEntityReference(utf8(name)); });
  }
  HRESULT WRT_ABI ImportNode(abi::IXmlNode *node, unsigned char deep,
                             abi::IXmlNode **result) override {
    const NodeRef original = nodeOf(node), self = nodeRef();
    NodeRef copy{self.tree};
    if (original.tree == self.tree) {
      std::lock_guard lock(self.tree->mutex);
      copy.node = self.tree->copy(original.node, deep != 0);
    } else if (original.tree != nullptr) {
      // In no order of ours, as another thread may import the other way.
      std::scoped_lock locks(self.tree->mutex, original.tree->mutex);
      copy.node = self.tree->copy(original.node, deep != 0);
    }
    return giveMade(std::move(copy), result);
  }
  HRESULT WRT_ABI get_Implementation(abi::IXmlDomImplementation **r) override {
    return notImplemented(r);
  }

  HRESULT WRT_ABI LoadXml(HSTRING xml) override { return load(utf8(xml), false); }
  HRESULT WRT_ABI LoadXmlWithSettings(HSTRING, abi::IXmlLoadSettings *) override {
    return status::kNotImplemented;
  }
  HRESULT WRT_ABI LoadXmlFromBuffer(abi::IBuffer *buffer) override {
    std::span<const uint8_t> content;
    const HRESULT status = contentOf(buffer, &content);
    if (status < 0)
      return status;
    return load({reinterpret_cast<const char *>(content.data()), content.size()}, true);
  }
  HRESULT WRT_ABI LoadXmlFromBufferWithSettings(abi::IBuffer *, abi::IXmlLoadSettings *) override {
    return status::kNotImplemented;
  }
  HRESULT WRT_ABI SaveToFileAsync(abi::IStorageFile *file, abi::IAsyncAction **result) override {
    if (result == nullptr)
      return status::kPointer;
    *result = nullptr;
    Path path;
    if (const HRESULT status = pathOf(file, &path); status < 0)
      return status;
    std::string text;
    ask([&](const NodeRef &self) {
      text = serialize(self.node);
      return status::kOk;
    });
    return startAsync(result,
                      [path, text](const Work<> &) { return writeFile(path, text, false); });
  }

private:
  HRESULT load(std::string_view text, bool detect) {
    std::shared_ptr<XmlTree> tree;
    const HRESULT status = XmlTree::parse(text, detect, &tree);
    if (status >= 0)
      become({tree, tree->document()});
    return status;
  }

  template <class Interface, class Find>
  HRESULT find(Interface **result, Find find) {
    NodeRef found;
    ask([&](const NodeRef &self) {
      found = {self.tree, find(self)};
      return status::kOk;
    });
    return giveNode(std::move(found), result);
  }

  /// A node that could not be made fails with `E_INVALIDARG`.
  template <class Interface, class Create>
  HRESULT create(Interface **result, Create create) {
    NodeRef made;
    ask([&](const NodeRef &self) {
      made = {self.tree, create(*self.tree)};
      return status::kOk;
    });
    return giveMade(std::move(made), result);
  }
  template <class Interface>
  static HRESULT giveMade(NodeRef made, Interface **result) {
    const bool failed = made.node == nullptr;
    const HRESULT given = giveNode(std::move(made), result);
    return given >= 0 && failed ? status::kInvalidArgument : given;
  }
};

using DocumentRef = types::XmlDocument;

class DocumentFactory final : public ActivationFactory<abi::IXmlDocumentStatics> {
public:
  HRESULT WRT_ABI ActivateInstance(abi::IInspectable **instance) override {
    if (instance == nullptr)
      return status::kPointer;
    *instance = make<XmlDocument>(std::make_shared<XmlTree>()).detach()->identity();
    return status::kOk;
  }

  using Loading = abi::IAsyncOperation__1_WRTXmlDocument_P;
  HRESULT WRT_ABI LoadFromFileAsync(abi::IStorageFile *file, Loading **result) override {
    if (result == nullptr)
      return status::kPointer;
    *result = nullptr;
    Path path;
    if (const HRESULT status = pathOf(file, &path); status < 0)
      return status;
    return startAsync<DocumentRef>(result,
                                   [path](const Work<> &, ComPtr<abi::IXmlDocument> &document) {
                                     std::string bytes;
                                     std::shared_ptr<XmlTree> tree;
                                     HRESULT status = readFile(path, &bytes);
                                     if (status >= 0)
                                       status = XmlTree::parse(bytes, true, &tree);
                                     if (status >= 0)
                                       document = make<XmlDocument>(std::move(tree));
                                     return status;
                                   });
  }
  HRESULT WRT_ABI LoadFromUriAsync(abi::IUriRuntimeClass *, Loading **r) override {
    return notImplemented(r); // there is no network
  }
  HRESULT WRT_ABI LoadFromUriWithSettingsAsync(abi::IUriRuntimeClass *, abi::IXmlLoadSettings *,
                                               Loading **r) override {
    return notImplemented(r);
  }
  HRESULT WRT_ABI LoadFromFileWithSettingsAsync(abi::IStorageFile *, abi::IXmlLoadSettings *,
                                                Loading **r) override {
    return notImplemented(r);
  }

private:
  std::u16string_view runtimeClassName() const override { return kName; }
};

const activation::Registration registration(kName, activation::makeFactory<DocumentFactory>);

} // namespace

ComPtr<abi::IXmlNode> makeDocument(const std::shared_ptr<XmlTree> &tree) {
  return make<XmlDocument>(tree);
}

} // namespace wrt::components
