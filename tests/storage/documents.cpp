// XML documents, URIs, the resource map, API information and the system's preferences.

#include "tests/storage/StorageFixture.h"

#include <abi/IMap.abi.h>
#include <abi/IVectorView.abi.h>
#include <abi/Windows.Data.Xml.Dom.abi.h>
#include <abi/Windows.Foundation.Metadata.abi.h>
#include <abi/Windows.Foundation.abi.h>
#include <abi/Windows.Storage.Streams.abi.h>
#include <abi/Windows.System.Profile.abi.h>
#include <abi/Windows.System.UserProfile.abi.h>
#include <abi/Windows.UI.Xaml.abi.h>

#include <thread>

namespace wrt::test {
namespace {

constexpr HRESULT kInvalid = static_cast<HRESULT>(0x80070057);

using Element = abi::IXmlElement;
using Node = abi::IXmlNode;
using Selector = abi::IXmlNodeSelector;

std::string xmlOf(const auto &object) { return answer(object, &abi::IXmlNodeSerializer::GetXml); }

/// A document with the members that the cells use.
struct Document {
  ComPtr<abi::IXmlDocument> document =
      activate<abi::IXmlDocument>(u"Windows.Data.Xml.Dom.XmlDocument");

  HRESULT load(const std::string &xml) {
    return call(document, &abi::IXmlDocumentIO::LoadXml, xml);
  }
  /// The markup of the first node that is selected, "none" or "failed".
  std::string first(const char *xpath) {
    ComPtr<Node> found;
    const HRESULT status = call(document, &Selector::SelectSingleNode, xpath, found.put());
    return status < 0 ? "failed" : found ? xmlOf(found) : "none";
  }
  unsigned count(const char *xpath) {
    return answer(answer(document, &Selector::SelectNodes, xpath), &abi::IXmlNodeList::get_Length);
  }
  std::string xml() { return xmlOf(document); }
  ComPtr<Element> root() { return answer(document, &abi::IXmlDocument::get_DocumentElement); }
  ComPtr<Element> element(const char *name) {
    return answer(document, &abi::IXmlDocument::CreateElement, name);
  }
  ComPtr<abi::IXmlText> textNode(const char *content) {
    return answer(document, &abi::IXmlDocument::CreateTextNode, content);
  }
};

std::string innerText(const Document &doc) {
  return answer(doc.document, &abi::IXmlNodeSerializer::get_InnerText);
}

ComPtr<abi::IInspectable> boxed(const char *content) {
  return answer(statics<abi::IPropertyValueStatics>(u"Windows.Foundation.PropertyValue"),
                &abi::IPropertyValueStatics::CreateString, content);
}

HRESULT append(const ComPtr<Element> &parent, const auto &child) {
  ComPtr<Node> added;
  return call(parent, &Node::AppendChild, child.template as<Node>(), added.put());
}

const Cell selecting("xml.document.select.normal", [] {
  Document doc;
  ASSERT_EQ(0, doc.load("<a><b id='1'>x</b><b id='2'>y<!--c--></b></a>"));
  EXPECT_EQ("<b id=\"2\">y<!--c--></b>", doc.first("/a/b[@id > 1]"));
  EXPECT_EQ(2u, doc.count("//b"));
  EXPECT_EQ(2u, doc.count("//@id"));
  EXPECT_EQ("none", doc.first("//z"));
  EXPECT_EQ("failed", doc.first("/a["));
  EXPECT_EQ("failed", doc.first("count(//b)")) << "a number is no node";

  ASSERT_EQ(0, doc.load("<n:a xmlns:n='urn:x'><n:b/></n:a>"));
  EXPECT_EQ("failed", doc.first("//n:b")) << "the prefix is not declared for the expression";
  const auto found =
      answer(doc.document, &Selector::SelectSingleNodeNS, "//q:b", boxed("xmlns:q='urn:x'"));
  ASSERT_TRUE(found);
  EXPECT_EQ(1, answer(found, &Node::get_NodeType));
});

// Where nodes may go is what the fuzzer's model of a tree knows.
const Cell editing("xml.document.edit.normal", [] {
  Document doc;
  ASSERT_EQ(0, doc.load("<a k='old'>one</a>"));
  const auto root = doc.root();
  // Neighbouring texts stay apart until they are told otherwise; a removed node lives on.
  const auto two = doc.textNode(" & two");
  EXPECT_EQ(0, append(root, two));
  EXPECT_EQ(2u, doc.count("/a/text()"));
  call(root, &Node::Normalize);
  EXPECT_EQ("<a k=\"old\">one &amp; two</a>", doc.first("/a"));
  EXPECT_EQ(1u, doc.count("/a/text()"));
  EXPECT_EQ(" & two", answer(two, &abi::IXmlCharacterData::get_Data));
  Document other;
  EXPECT_EQ(kInvalid, append(root, other.element("c"))) << "of another document";
  EXPECT_FALSE(doc.element("1 2"));

  // A node of an attribute outlives its value, and nodes outlive their document.
  const auto value = answer(answer(root, &Element::GetAttributeNode, "k"), &Node::get_FirstChild);
  call(root, &Element::SetAttribute, "k", "<new>");
  EXPECT_EQ("&lt;new&gt;", xmlOf(value));
  doc = Document();
  EXPECT_EQ("<a k=\"&lt;new&gt;\">one &amp; two</a>", xmlOf(root));

  const auto split = other.textNode("ab\xF0\x9F\x98\x80"
                                    "c");
  const auto rest = answer(split, &abi::IXmlText::SplitText, 2u);
  EXPECT_EQ(3u, answer(rest, &abi::IXmlCharacterData::get_Length)) << "in UTF-16 units";
  ComPtr<abi::IXmlText> none;
  EXPECT_EQ(kInvalid, split->SplitText(3, none.put()));
});

// What could not be written is refused, and leaves everything as it was.
const Cell unwritable("xml.document.edit.unwritable", [] {
  Document doc;
  ASSERT_EQ(0, doc.load("<a k='v'><!--c--><?p d?><![CDATA[t]]>x</a>"));
  const std::string before = doc.xml();
  const std::pair<const char *, std::u16string_view> refused[] = {
      {"/a/comment()", u"a--b"}, {"/a/comment()", u"-"}, {"/a/processing-instruction()", u"?>"},
      {"/a/text()[1]", u"]]>"},  {"/a", {u"a\0b", 3}},   {"/a/@k", u"\x1B"},
      {"/a", u"\xFFFF"},         {"/a/@k", u"\xD800"}};
  for (const auto &[xpath, content] : refused)
    EXPECT_EQ(kInvalid, call(answer(doc.document, &Selector::SelectSingleNode, xpath),
                             &abi::IXmlNodeSerializer::put_InnerText, StringHolder(content)))
        << xpath;
  ComPtr<abi::IXmlProcessingInstruction> instruction;
  EXPECT_EQ(kInvalid, call(doc.document, &abi::IXmlDocument::CreateProcessingInstruction, "XML",
                           nullptr, instruction.put()));
  EXPECT_EQ(before, doc.xml());

  // Namespaces are declared where they are needed, and said as attributes.
  const auto root = doc.root();
  EXPECT_EQ(0, call(root, &Element::SetAttribute, "xmlns:n", "a&b"));
  EXPECT_EQ("a&b", answer(root, &Element::GetAttribute, "xmlns:n"));
  EXPECT_NE(std::string::npos, doc.xml().find("<a xmlns:n=\"a&#38;b\" k="));
  EXPECT_EQ(0, doc.load(doc.xml()));
  EXPECT_EQ(kInvalid, call(root, &Element::SetAttribute, "xmlns:n", "other"));
});

const Cell identifiers("xml.document.identifiers.changing", [] {
  Document doc;
  ASSERT_EQ(0, doc.load("<!DOCTYPE a [<!ATTLIST b i ID #IMPLIED>]><a><b i='1'/></a>"));
  const auto found = [&](const char *id) {
    return answer(doc.document, &abi::IXmlDocument::GetElementById, id);
  };
  const auto b = found("1");
  ASSERT_TRUE(b);
  call(b, &Element::SetAttribute, "i", "2");
  EXPECT_FALSE(found("1"));
  EXPECT_TRUE(found("2"));
  EXPECT_EQ("<b i=\"2\"/>", doc.first("id('2')"));
  EXPECT_TRUE(answer(doc.root(), &Node::RemoveChild, b.as<Node>()));
  EXPECT_FALSE(found("2"));
});

// Two threads that import from each other's document.
const Cell importing("xml.document.import.other_threads", [] {
  Document documents[2];
  for (Document &document : documents)
    ASSERT_EQ(0, document.load("<a><b/></a>"));
  const auto import = [&](int to) {
    for (int i = 0; i < 2000; ++i) {
      EXPECT_TRUE(answer(documents[to].document, &abi::IXmlDocument::ImportNode,
                         documents[1 - to].root().as<Node>(), 1));
    }
  };
  std::thread other(import, 0);
  import(1);
  other.join();
});

const Cell loading("xml.document.load.failing", [] {
  constexpr auto kMalformed = static_cast<HRESULT>(0xC00CE556);
  Document doc;
  EXPECT_EQ(static_cast<HRESULT>(0xC00CE558), doc.load(""));
  EXPECT_EQ(static_cast<HRESULT>(0xC00CE56D), doc.load("<a><b></a>"));
  EXPECT_EQ(kMalformed, doc.load("just text"));
  ASSERT_EQ(0, doc.load("<?xml version=\"1.0\" encoding=\"utf-16\"?><a>\xC3\xBC</a>"))
      << "the text is text, whatever it says of itself";
  EXPECT_EQ(kMalformed, doc.load("<a>&nope</a>"));
  EXPECT_EQ(kMalformed, doc.load("<p:a/>")) << "an unbound prefix";
  EXPECT_EQ("<?xml version=\"1.0\" encoding=\"UTF-8\"?><a>\xC3\xBC</a>", doc.xml())
      << "a failed load changes nothing";

  const auto nested = [](int levels) {
    std::string xml;
    for (int i = 0; i < levels; ++i)
      xml = "<a>" + xml + "</a>";
    return xml;
  };
  EXPECT_EQ(0, doc.load(nested(2000)));
  EXPECT_EQ(static_cast<HRESULT>(0xC00CEE81), doc.load(nested(5000)));
  EXPECT_EQ(0, doc.load("<a k='" + std::string(11 << 20, 'x') + "'>" + std::string(11 << 20, 'y') +
                        "</a>"));

  // Bytes say what they are.
  std::string bytes = "<?xml version='1.0' encoding='iso-8859-1'?><a>\xFC</a>";
  const auto size = static_cast<uint32_t>(bytes.size());
  const auto buffer = ComPtr<abi::IBuffer>::adopt(
      static_cast<abi::IBuffer *>(WRTCreateBufferWrappingBytes(bytes.data(), size)));
  buffer->put_Length(size);
  EXPECT_EQ(0, call(doc.document, &abi::IXmlDocumentIO2::LoadXmlFromBuffer, buffer));
  EXPECT_EQ("\xC3\xBC", innerText(doc));
});

// Nothing outside of the text is read, and entities do not grow without end.
const Cell entities("xml.document.load.entities", [] {
  const TemporaryFolder made;
  const auto secret = made.add("secret.txt", "SECRET");
  Document doc;
  doc.load("<!DOCTYPE a [<!ENTITY e SYSTEM 'file://" + secret.string() + "'>]><a>&e;</a>");
  EXPECT_EQ(std::string::npos, (innerText(doc) + doc.xml()).find("SECRET"));

  std::string bomb = "<!DOCTYPE a [<!ENTITY e0 'lol'>";
  for (int i = 1; i < 12; ++i) {
    bomb += "<!ENTITY e" + std::to_string(i) + " '";
    for (int j = 0; j < 10; ++j)
      bomb += "&e" + std::to_string(i - 1) + ";";
    bomb += "'>";
  }
  for (const char *use : {"]><a>&e11;</a>", "]><a k='&e11;'/>"})
    EXPECT_EQ(static_cast<HRESULT>(0xC00CEE82), doc.load(bomb + use));
});

using Uri = abi::IUriRuntimeClass;

ComPtr<Uri> uri(const char *text) {
  return answer(statics<abi::IUriRuntimeClassFactory>(u"Windows.Foundation.Uri"),
                &abi::IUriRuntimeClassFactory::CreateUri, text);
}

const Cell uris("foundation.uri.parts.normal", [] {
  const auto made = uri("HTTP://me:pw@Example.COM:8080/a/./b/../c d.tar.gz?q=1&r#frag");
  ASSERT_TRUE(made);
  const std::pair<HRESULT (WRT_ABI Uri::*)(HSTRING *), const char *> parts[] = {
      {&Uri::get_AbsoluteUri, "http://me:pw@example.com:8080/a/c%20d.tar.gz?q=1&r#frag"},
      {&Uri::get_Host, "example.com"},
      {&Uri::get_SchemeName, "http"},
      {&Uri::get_UserName, "me"},
      {&Uri::get_Password, "pw"},
      {&Uri::get_Path, "/a/c%20d.tar.gz"},
      {&Uri::get_Extension, ".gz"},
      {&Uri::get_Query, "?q=1&r"},
      {&Uri::get_Fragment, "#frag"}};
  for (const auto &[part, expected] : parts)
    EXPECT_EQ(expected, answer(made, part));
  EXPECT_EQ(8080, answer(made, &Uri::get_Port));
  EXPECT_EQ(1, answer(made, &Uri::get_Suspicious)) << "a space had to be escaped";
  EXPECT_EQ(1, answer(made, &Uri::Equals,
                      uri("http://me:pw@example.com:8080/a/c%20d.tar.gz?q=1&r#frag")));
  EXPECT_EQ("http://h/a/d#e", answer(answer(uri("http://h/a/b/c?q"), &Uri::CombineUri, "../d#e"),
                                     &Uri::get_AbsoluteUri));
  // What begins with two slashes behind no host must not become one.
  const auto hostless = uri("le:/.//C:/x");
  EXPECT_EQ("le:/.//C:/x", answer(hostless, &Uri::get_AbsoluteUri));
  EXPECT_EQ("", answer(hostless, &Uri::get_Host));
  EXPECT_EQ("http://h:65535/", answer(uri("http://h:065535"), &Uri::get_AbsoluteUri));
  using Factory = abi::IUriRuntimeClassFactory;
  for (const char *bad : {"", "relative/path", "http://[::1", "http://a/%", "http://a:65536/",
                          "http://a:99999999/", "http://a:99999999999/"}) {
    ComPtr<Uri> none;
    EXPECT_EQ(kInvalid, call(statics<Factory>(u"Windows.Foundation.Uri"), &Factory::CreateUri, bad,
                             none.put()))
        << bad;
  }
  using Escapes = abi::IUriEscapeStatics;
  const auto escapes = statics<Escapes>(u"Windows.Foundation.Uri");
  EXPECT_EQ("a%20b%2F%C3%BC", answer(escapes, &Escapes::EscapeComponent, "a b/\xC3\xBC"));
  EXPECT_EQ("a b/\xC3\xBC", answer(escapes, &Escapes::UnescapeComponent, "a%20b%2F%C3%BC"));
  StringHolder domain;
  EXPECT_EQ(static_cast<HRESULT>(0x80004001), made->get_Domain(domain.put()));
});

const Cell resourceMap("foundation.resource_map.keys.normal", [] {
  using Map = abi::IMap__2_WRTIInspectable_P_WRTIInspectable_P;
  const auto map = activate<Map>(u"Windows.UI.Xaml.ResourceDictionary");
  ASSERT_TRUE(map);
  EXPECT_EQ(0, answer(map, &Map::Insert, boxed("k"), boxed("1")));
  EXPECT_EQ(1, answer(map, &Map::Insert, boxed("k"), boxed("2"))) << "keys by their text";
  EXPECT_EQ(0, answer(map, &Map::Insert, map, boxed("3")));
  EXPECT_EQ(2u, answer(map, &Map::get_Size));
  EXPECT_EQ("2", answer(answer(map, &Map::Lookup, boxed("k")), &abi::IPropertyValue::GetString));
  ComPtr<abi::IInspectable> none;
  EXPECT_EQ(static_cast<HRESULT>(0x8000000B), call(map, &Map::Lookup, boxed("none"), none.put()));
  EXPECT_EQ(0, map->Remove(map.get())) << "which holds itself";
});

const Cell apiInformation("foundation.api_information.present.normal", [] {
  using Api = abi::IApiInformationStatics;
  const auto api = statics<Api>(u"Windows.Foundation.Metadata.ApiInformation");
  const auto is = [&](auto... question) { return answer(api, question...); };
  const char *const kUri = "Windows.Foundation.Uri";
  EXPECT_EQ(1, is(&Api::IsTypePresent, kUri));
  EXPECT_EQ(0, is(&Api::IsTypePresent, "Windows.No.Such"));
  EXPECT_EQ(0xCC, is(&Api::IsTypePresent, "")) << "a failure";
  EXPECT_EQ(1, is(&Api::IsMethodPresent, kUri, "CombineUri"));
  EXPECT_EQ(0, is(&Api::IsMethodPresent, kUri, "Host"));
  for (unsigned arity : {0u, 1u, 2u})
    EXPECT_EQ(arity == 1, is(&Api::IsMethodPresentWithArity, kUri, "CombineUri", arity));
  EXPECT_EQ(1, is(&Api::IsPropertyPresent, kUri, "Host"));
  EXPECT_EQ(1, is(&Api::IsReadOnlyPropertyPresent, kUri, "Host"));
  EXPECT_EQ(0, is(&Api::IsWriteablePropertyPresent, kUri, "Host"));
  EXPECT_EQ(1, is(&Api::IsWriteablePropertyPresent, "Windows.Storage.Streams.IBuffer", "Length"));
  EXPECT_EQ(1, is(&Api::IsEnumNamedValuePresent, "Windows.Foundation.AsyncStatus", "Canceled"));
  for (unsigned short major : {1, 5, 6})
    EXPECT_EQ(major <= 5, is(&Api::IsApiContractPresentByMajor,
                             "Windows.Foundation.UniversalApiContract", major));
});

const Cell preferences("system.preferences.environment.normal", [] {
  setenv("LC_ALL", "de_AT.UTF-8", 1);
  using Preferences = abi::IGlobalizationPreferencesStatics;
  const auto preferences =
      statics<Preferences>(u"Windows.System.UserProfile.GlobalizationPreferences");
  const auto languages = answer(preferences, &Preferences::get_Languages);
  EXPECT_EQ("de-AT", answer(languages, &abi::IVectorView__1_WRTHSTRING::GetAt, 0u));
  EXPECT_EQ("AT", answer(preferences, &Preferences::get_HomeGeographicRegion));
  unsetenv("LC_ALL");

  const auto info =
      answer(statics<abi::IAnalyticsInfoStatics>(u"Windows.System.Profile.AnalyticsInfo"),
             &abi::IAnalyticsInfoStatics::get_VersionInfo);
  EXPECT_GT(std::stoull(answer(info, &abi::IAnalyticsVersionInfo::get_DeviceFamilyVersion)) >> 48,
            2u)
      << "the kernel's major number";
});

} // namespace
} // namespace wrt::test
