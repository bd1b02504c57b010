/// XML documents as trees, on libxml2. Texts are UTF-8. A tree is locked by its users; see
/// `XmlTree`.
#ifndef WRT_XML_TREE_H
#define WRT_XML_TREE_H

#include <WRTStatus.h>

#include <libxml/tree.h>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace wrt::components {

/// Statuses of documents that are none (Windows 10 SDK 10.0.16299.0, msxml6.h).
inline constexpr HRESULT kXmlInvalid = static_cast<HRESULT>(0xC00CE556);
inline constexpr HRESULT kXmlMissingRoot = static_cast<HRESULT>(0xC00CE558);
inline constexpr HRESULT kXmlEndTagMismatch = static_cast<HRESULT>(0xC00CE56D);
/// Limits of ours, told as XmlLite tells its own (xmllite.h of mingw-w64).
inline constexpr HRESULT kXmlTooDeep = static_cast<HRESULT>(0xC00CEE81); ///< `SC_E_MAXELEMENTDEPTH`
inline constexpr HRESULT kXmlTooMuchExpansion =
    static_cast<HRESULT>(0xC00CEE82); ///< `SC_E_MAXENTITYEXPANSION`

/// How many levels of elements a tree has at most, as trees are walked with recursion.
inline constexpr int kMaximumXmlDepth = 4096;

/// A document's `standalone` when its text has no XML declaration.
inline constexpr int kNoDeclaration = -1;

/// A document's nodes, linked to it or not: what was created and not yet inserted, or was removed,
/// belongs to the tree too and lives as long as it does. So a node's address is valid as long as
/// somebody holds the tree. All functions on nodes want `mutex` held and nodes of this tree. What
/// could not be written as markup is refused with `E_INVALIDARG`, and nothing has changed.
class XmlTree {
public:
  std::mutex mutex;

  XmlTree();
  ~XmlTree();
  XmlTree(const XmlTree &) = delete;
  XmlTree &operator=(const XmlTree &) = delete;

  /// Parses UTF-8 (whatever the declaration says), or with `detect` bytes in the encoding that they
  /// tell. Nothing outside of the text is ever read: neither external entities nor DTDs. Documents
  /// that are too deep, or grow beyond ten times their size (or 1 MB) by their entities, are
  /// refused.
  static HRESULT parse(std::string_view text, bool detect, std::shared_ptr<XmlTree> *tree);

  xmlNode *document() const { return reinterpret_cast<xmlNode *>(document_); }
  xmlNode *root() const { return xmlDocGetRootElement(document_); }

  /// New nodes; null when the name is none, or the content cannot be written. `uri` null means no
  /// namespace.
  xmlNode *createElement(const std::string *uri, const std::string &qualifiedName);
  xmlNode *createAttribute(const std::string *uri, const std::string &qualifiedName);
  xmlNode *createText(xmlElementType type, const std::string &content);
  xmlNode *createProcessingInstruction(const std::string &target, const std::string &data);
  xmlNode *createEntityReference(const std::string &name);
  xmlNode *createFragment();
  /// A copy of a node of this or another tree, which is then locked too; null for documents and
  /// document types, of which there is none.
  xmlNode *copy(xmlNode *node, bool deep);

  /// Puts `child`, or the children of a fragment, before `reference`, or last if that is null.
  HRESULT insert(xmlNode *parent, xmlNode *child, xmlNode *reference);
  /// Puts `child` likewise into the place of `old`.
  HRESULT replace(xmlNode *parent, xmlNode *child, xmlNode *old);
  HRESULT remove(xmlNode *parent, xmlNode *child);
  /// Sets an attribute node on an element; `*old` is the one that it replaces, or null.
  HRESULT setAttributeNode(xmlNode *element, xmlNode *attribute, xmlNode **old);
  HRESULT removeAttributeNode(xmlNode *element, xmlNode *attribute);

  /// Sets an attribute's value, the attribute being made if there is none. One whose name begins
  /// with "xmlns" declares a namespace, and is no node.
  HRESULT setAttribute(xmlNode *element, const std::string *uri, const std::string &qualifiedName,
                       const std::string &value);
  HRESULT removeAttribute(xmlNode *element, const std::string *uri, const std::string &name);

  /// Content of texts, comments and processing instructions, value of attributes.
  HRESULT setValue(xmlNode *node, const std::string &value);
  /// Replaces all children by a text.
  HRESULT setText(xmlNode *node, const std::string &text);
  /// Joins neighbouring texts below `node` and drops empty ones.
  void normalize(xmlNode *node);

private:
  xmlNode *adopt(xmlNode *node);
  void unlink(xmlNode *node);
  void move(xmlNode *parent, const std::vector<xmlNode *> &nodes, xmlNode *reference);
  bool mayInsert(const xmlNode *parent, const xmlNode *child, const std::vector<xmlNode *> &nodes,
                 const xmlNode *reference, const xmlNode *old) const;

  xmlDoc *document_;
  /// The nodes without a parent.
  std::set<xmlNode *> loose_;
};

/// Lets the references to entities in `node` and below no longer point at their entities: from
/// there an XPath search would come into the DTD, from the DTD back to the reference, and so on.
void detachReferences(xmlNode *node);

/// What can be asked of a node without its tree. Names are qualified names.
std::string nodeName(const xmlNode *node);
std::optional<std::string> namespaceUri(const xmlNode *node);
std::optional<std::string> prefixOf(const xmlNode *node);
/// Nothing for kinds that have no value.
std::optional<std::string> nodeValue(xmlNode *node);
std::string innerText(xmlNode *node);
bool isCharacterData(const xmlNode *node);

std::vector<xmlNode *> childrenOf(const xmlNode *node);
std::vector<xmlNode *> attributesOf(const xmlNode *node);
/// By qualified name, or by local name within a namespace; null when there is none.
xmlNode *findAttribute(const xmlNode *element, const std::string &name);
xmlNode *findAttribute(const xmlNode *element, const std::string &uri,
                       const std::string &localName);
/// An attribute's value, or the namespace that an attribute of that name declares; empty for none.
std::string attributeValue(const xmlNode *element, const std::string &name);
/// The elements below `node` in document order; "*" means all.
std::vector<xmlNode *> elementsByName(xmlNode *node, const std::string &name);
/// The first element of the document as it is now with that `xml:id`, or that value of an attribute
/// which its DTD declares as an identifier; null when there is none.
xmlNode *elementById(xmlNode *document, const std::string &id);

/// The markup of a node with everything in it; of a document with its declaration if it had one.
std::string serialize(xmlNode *node);

/// The nodes that an XPath expression selects, in document order; an expression that is none, or
/// yields no nodes, fails. `namespaces` is like `xmlns:a="..." xmlns:b='...'`.
HRESULT selectNodes(xmlNode *context, const std::string &xpath, const std::string &namespaces,
                    std::vector<xmlNode *> *nodes);

} // namespace wrt::components

#endif
