// Sequences of operations on XML documents. The first choice is between those that a model of a
// tree understands and all that there are; of these the outcome is checked by what must always
// hold: a document's markup can be loaded and gives the same markup, its nodes are linked both
// ways, and in the end nothing is left.

#include "tests/fuzz/DocumentObjects.h"

#include "platform/linux/ledger/WRTLedger.h"

#include <abi/IVectorView.abi.h>
#include <abi/Windows.Data.Xml.Dom.abi.h>
#include <abi/Windows.Foundation.abi.h>

#include <cstdio>
#include <cstdlib>
#include <functional>
#include <utility>

namespace wrt::test {

void fail(const std::string &what) {
  std::fprintf(stderr, "%s\n", what.c_str());
  std::abort();
}

ComPtr<abi::IXmlDocument> newDocument(std::u16string_view xml) {
  ComPtr<abi::IInspectable> object;
  activation::findFactory(u"Windows.Data.Xml.Dom.XmlDocument")->ActivateInstance(object.put());
  auto document = object.as<abi::IXmlDocument>();
  if (!xml.empty() && document.as<abi::IXmlDocumentIO>()->LoadXml(StringHolder(xml).get()) < 0)
    return nullptr;
  return document;
}

std::u16string xmlOf(const Node &node) {
  StringHolder xml;
  node.as<abi::IXmlNodeSerializer>()->GetXml(xml.put());
  return std::u16string(xml.view());
}

namespace {

using namespace std::string_view_literals;

constexpr std::u16string_view kDocuments[] = {
    u"<a/>",
    u"<a i='1'><b>x</b><!--c--><?p d?><![CDATA[y]]><b xml:id='k'/></a>",
    u"<n:a xmlns:n='urn:1' xmlns='urn:2' n:i='1'><b n:j='2'><n:c xmlns:n='urn:3' "
    u"n:i='4'/></b></n:a>",
    u"<!DOCTYPE a [<!ENTITY e '<b>x</b>'><!ENTITY f 'text'><!ATTLIST b i ID #IMPLIED>]>"
    u"<a i='-&f;-'><b i='k'>&e;</b></a>",
};
constexpr std::u16string_view kNames[] = {u"a", u"b", u"i", u"1", u"xmlns", u"", u"a\0b"sv};
constexpr std::u16string_view kQualified[] = {u"a", u"n:i", u"m:b", u"xml:id", u"xmlns:n", u":"};
constexpr std::u16string_view kUris[] = {u"", u"urn:1", u"urn:2",
                                         u"http://www.w3.org/XML/1998/namespace"};
constexpr std::u16string_view kTexts[] = {
    u"",   u"x",      u"k",    u"<&>\"'", u"]]>",    u"a--b",         u"-",
    u"?>", u"a\n\tb", u"\x01", u"\xFFFE", u"\xD800", u"\xD83D\xDE00", u"a\0b"sv};
constexpr std::u16string_view kPaths[] = {u"//*",
                                          u"//@*",
                                          u"//node()",
                                          u"..",
                                          u"preceding::node()",
                                          u"following::node()",
                                          u"ancestor-or-self::node()",
                                          u"node()",
                                          u"node()/node()",
                                          u"namespace::*",
                                          u"id('k')",
                                          u"//text()[1]",
                                          u"preceding-sibling::node()",
                                          u"following-sibling::node()",
                                          u"//b[@i='k']",
                                          u"/a[",
                                          u"n:a"};

std::string narrow(const std::u16string &text) { return {text.begin(), text.end()}; }

class Sequence {
public:
  explicit Sequence(Choices &choices) : choices_(choices) {
    for (auto &document : documents_) {
      document = newDocument(choices_.of(kDocuments));
      nodes_.push_back(document.as<abi::IXmlNode>());
    }
  }

  void run() {
    while (choices_.hasMore())
      step();
    for (const auto &document : documents_)
      check(document.as<abi::IXmlNode>());
    for (const Node &node : nodes_)
      checkLinks(node, 0);
  }

private:
  Node &node() { return choices_.of(nodes_); }
  ComPtr<abi::IInspectable> boxed(std::u16string_view text) {
    ComPtr<abi::IInspectable> value;
    if (!text.empty())
      values_->CreateString(StringHolder(text).get(), value.put());
    return value;
  }
  void keep(const ComPtr<abi::IUnknown> &object) {
    if (!object || nodes_.size() >= 200)
      return;
    if (Node found = object.as<abi::IXmlNode>())
      nodes_.push_back(std::move(found));
  }

  /// Performs one of these, and keeps the node that it answers.
  template <size_t count>
  void perform(const Operation (&operations)[count]) {
    choices_.of(operations)();
    keep(std::exchange(answer_, nullptr));
  }
  /// Makes a node by one of the document's members.
  void create() {
    auto *const document = documents_[choices_.below(2)].get();
    const StringHolder name(choices_.of(kNames)), qualified(choices_.of(kQualified));
    const StringHolder content(choices_.of(kTexts));
    const auto uri = boxed(choices_.of(kUris));
    const Answer made{answer_};
    perform({
        [&] { document->CreateElement(name.get(), made); },
        [&] { document->CreateElementNS(uri.get(), qualified.get(), made); },
        [&] { document->CreateAttribute(name.get(), made); },
        [&] { document->CreateAttributeNS(uri.get(), qualified.get(), made); },
        [&] { document->CreateTextNode(content.get(), made); },
        [&] { document->CreateComment(content.get(), made); },
        [&] { document->CreateCDataSection(content.get(), made); },
        [&] { document->CreateProcessingInstruction(name.get(), content.get(), made); },
        [&] { document->CreateEntityReference(StringHolder(u"e").get(), made); },
        [&] { document->CreateDocumentFragment(made); },
    });
  }

  /// Puts nodes somewhere else, or copies them.
  void arrange() {
    const Node &parent = node(), &child = node(), &other = node();
    const Answer result{answer_};
    const auto mayCopy = [&] { return xmlOf(child).size() < 10'000; }; // copies of copies grow
    const Operation append = [&] { parent->AppendChild(child.get(), result); };
    perform({
        append,
        append,
        [&] { parent->InsertBefore(child.get(), other.get(), result); },
        [&] { parent->RemoveChild(child.get(), result); },
        [&] { parent->ReplaceChild(child.get(), other.get(), result); },
        [&] {
          if (mayCopy())
            child->CloneNode(choices_.below(2) != 0, result);
        },
        [&] {
          if (mayCopy())
            documents_[choices_.below(2)]->ImportNode(child.get(), choices_.below(2) != 0, result);
        },
    });
  }

  /// Changes attributes of an element.
  void attribute() {
    const auto element = node().as<abi::IXmlElement>();
    if (!element)
      return;
    const auto node = this->node().as<abi::IXmlAttribute>();
    const StringHolder name(choices_.of(kNames)), qualified(choices_.of(kQualified));
    const StringHolder content(choices_.of(kTexts));
    const auto uri = boxed(choices_.of(kUris));
    const Answer result{answer_};
    const Operation set = [&] { element->SetAttribute(name.get(), content.get()); };
    perform({
        set,
        set,
        [&] { element->SetAttributeNS(uri.get(), qualified.get(), content.get()); },
        [&] { element->RemoveAttribute(name.get()); },
        [&] { element->RemoveAttributeNS(uri.get(), name.get()); },
        [&] { element->SetAttributeNode(node.get(), result); },
        [&] { element->RemoveAttributeNode(node.get(), result); },
        [&] { element->GetAttributeNode(name.get(), result); },
    });
  }

  /// Changes what is in a node.
  void content() {
    const Node target = node();
    const StringHolder text(choices_.of(kTexts));
    const auto offset = static_cast<unsigned>(choices_.below(4));
    perform({
        [&] { target->put_NodeValue(boxed(text.view()).get()); },
        [&] { target.as<abi::IXmlNodeSerializer>()->put_InnerText(text.get()); },
        [&] { target->Normalize(); },
        [&] {
          if (const auto data = target.as<abi::IXmlCharacterData>())
            data->ReplaceData(offset, static_cast<unsigned>(choices_.below(3)), text.get());
        },
        [&] {
          if (const auto whole = target.as<abi::IXmlText>())
            whole->SplitText(offset, Answer{answer_});
        },
        [&] {
          if (const auto io = target.as<abi::IXmlDocumentIO>())
            io->LoadXml(StringHolder(choices_.of(kDocuments)).get());
        },
    });
  }

  /// Finds nodes.
  void look() {
    const Node from = node();
    const Answer found{answer_};
    perform({
        [&] { from->get_FirstChild(found); },
        [&] { from->get_ParentNode(found); },
        [&] { documents_[choices_.below(2)]->GetElementById(StringHolder(u"k").get(), found); },
        [&] {
          ComPtr<abi::IXmlNamedNodeMap> map;
          from->get_Attributes(map.put());
          if (const auto view = map.as<abi::IVectorView__1_WRTIXmlNode_P>())
            view->GetAt(static_cast<unsigned>(choices_.below(2)), found);
        },
        [&] {
          ComPtr<abi::IXmlNodeList> list;
          from.as<abi::IXmlNodeSelector>()->SelectNodes(StringHolder(choices_.of(kPaths)).get(),
                                                        list.put());
          if (list)
            list->Item(static_cast<unsigned>(choices_.below(4)), found);
        },
    });
  }

  /// What the table holds is not what keeps nodes alive.
  void forget() {
    if (nodes_.size() > 2)
      nodes_.erase(nodes_.begin() + static_cast<int64_t>(2 + choices_.below(nodes_.size() - 2)));
  }

  void step() {
    static constexpr void (Sequence::*kSteps[])() = {
        &Sequence::create, &Sequence::attribute, &Sequence::content, &Sequence::look,
        &Sequence::look,   &Sequence::forget,    &Sequence::arrange, &Sequence::arrange};
    (this->*choices_.of(kSteps))();
  }

  static void check(const Node &document) {
    document->Normalize(); // empty texts do not come back
    const std::u16string xml = xmlOf(document);
    ComPtr<abi::IXmlElement> root;
    document.as<abi::IXmlDocument>()->get_DocumentElement(root.put());
    // References need a document type that declares their entities.
    const auto has = [&](std::u16string_view part) { return xml.find(part) != xml.npos; };
    if (!root || (!has(u"<!DOCTYPE") && (has(u"&e;") || has(u"&f;"))))
      return;
    const auto again = newDocument(xml);
    if (!again)
      fail("cannot be loaded: " + narrow(xml));
    // Neighbouring sections become one, and an empty one nothing.
    if (!has(u"]]><![CDATA[") && !has(u"<![CDATA[]]>") && xmlOf(again.as<abi::IXmlNode>()) != xml)
      fail("does not come back: " + narrow(xml));
  }

  /// Forwards and backwards there are the same number of children, each with a parent.
  static void checkLinks(const Node &node, int depth) {
    ComPtr<abi::IXmlNodeList> children;
    node->get_ChildNodes(children.put());
    unsigned count = 0, forwards = 0, backwards = 0;
    children->get_Length(&count);
    Node child, next;
    for (node->get_FirstChild(child.put()); child;
         child = std::exchange(next, nullptr), ++forwards) {
      Node parent;
      child->get_ParentNode(parent.put());
      if (!parent || depth > 1000)
        fail("a child without a parent");
      checkLinks(child, depth + 1);
      child->get_NextSibling(next.put());
    }
    for (node->get_LastChild(child.put()); child; child = std::exchange(next, nullptr), ++backwards)
      child->get_PreviousSibling(next.put());
    if (count != forwards || count != backwards)
      fail("children are not linked both ways");
  }

  Choices &choices_;
  const ComPtr<abi::IPropertyValueStatics> values_ =
      activation::findFactory(u"Windows.Foundation.PropertyValue").as<abi::IPropertyValueStatics>();
  ComPtr<abi::IXmlDocument> documents_[2];
  std::vector<Node> nodes_;
  ComPtr<abi::IUnknown> answer_;
};

} // namespace
} // namespace wrt::test

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  using namespace wrt::test;
  const WRTLedgerCounts before = WRTLedgerRead();
  Choices choices(data, size);
  if (choices.below(3) == 0)
    compareWithModel(choices);
  else
    Sequence(choices).run();
  if (!WRTLedgerIsZero(WRTLedgerDifference(before, WRTLedgerRead())))
    fail("something is left");
  return 0;
}
