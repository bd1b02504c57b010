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

/// A document with the members that the cells use.
struct Document {
  ComPtr<abi::IXmlDocument> document =
      activate<abi::IXmlDocument>(u"Windows.Data.Xml.Dom.XmlDocument");
  ComPtr<abi::IXmlNode> node = document.as<abi::IXmlNode>();

  HRESULT load(const std::string &xml) {
    return document.as<abi::IXmlDocumentIO>()->LoadXml(text(xml).get());
  }
  /// The markup of the first node that is selected; "none", or the status in hexadecimal.
  std::string first(const char *xpath) {
    ComPtr<abi::IXmlNode> found;
    const HRESULT status =
        node.as<abi::IXmlNodeSelector>()->SelectSingleNode(text(xpath).get(), found.put());
    return status < 0 ? "failed" : found ? xmlOf(found) : "none";
  }
  unsigned count(const char *xpath) {
    ComPtr<abi::IXmlNodeList> found;
    unsigned length = 0;
    if (node.as<abi::IXmlNodeSelector>()->SelectNodes(text(xpath).get(), found.put()) >= 0)
      found->get_Length(&length);
    return length;
  }
  std::string xml() { return xmlOf(node); }
  static std::string xmlOf(const ComPtr<abi::IXmlNode> &node) {
    StringHolder xml;
    node.as<abi::IXmlNodeSerializer>()->GetXml(xml.put());
    return utf8(xml);
  }
  ComPtr<abi::IXmlElement> element(const char *name) {
    ComPtr<abi::IXmlElement> made;
    document->CreateElement(text(name).get(), made.put());
    return made;
  }
  ComPtr<abi::IXmlText> textNode(const char *content) {
    ComPtr<abi::IXmlText> made;
    document->CreateTextNode(text(content).get(), made.put());
    return made;
  }
};

HRESULT append(abi::IUnknown *parent, abi::IUnknown *child) {
  ComPtr<abi::IXmlNode> added;
  return ComPtr(parent).as<abi::IXmlNode>()->AppendChild(ComPtr(child).as<abi::IXmlNode>().get(),
                                                         added.put());
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
  ComPtr<abi::IXmlNode> found;
  ComPtr<abi::IInspectable> spaces;
  statics<abi::IPropertyValueStatics>(u"Windows.Foundation.PropertyValue")
      ->CreateString(text("xmlns:q='urn:x'").get(), spaces.put());
  EXPECT_EQ(0, doc.node.as<abi::IXmlNodeSelector>()->SelectSingleNodeNS(text("//q:b").get(),
                                                                        spaces.get(), found.put()));
  ASSERT_TRUE(found);
  int type = 0;
  found->get_NodeType(&type);
  EXPECT_EQ(1, type);
});

// Where nodes may go is what the fuzzer's model of a tree knows.
const Cell editing("xml.document.edit.normal", [] {
  Document doc;
  ASSERT_EQ(0, doc.load("<a k='old'>one</a>"));
  ComPtr<abi::IXmlElement> root;
  doc.document->get_DocumentElement(root.put());
  // Neighbouring texts stay apart until they are told otherwise; a removed node lives on.
  const auto two = doc.textNode(" & two");
  EXPECT_EQ(0, append(root.get(), two.get()));
  EXPECT_EQ(2u, doc.count("/a/text()"));
  root.as<abi::IXmlNode>()->Normalize();
  EXPECT_EQ("<a k=\"old\">one &amp; two</a>", doc.first("/a"));
  EXPECT_EQ(1u, doc.count("/a/text()"));
  StringHolder gone;
  EXPECT_EQ(0, two.as<abi::IXmlCharacterData>()->get_Data(gone.put()));
  EXPECT_EQ(" & two", utf8(gone));
  Document other;
  EXPECT_EQ(kInvalid, append(root.get(), other.element("c").get())) << "of another document";
  EXPECT_FALSE(doc.element("1 2"));

  // A node of an attribute outlives its value, and nodes outlive their document.
  ComPtr<abi::IXmlNode> value;
  ComPtr<abi::IXmlAttribute> attribute;
  root->GetAttributeNode(text("k").get(), attribute.put());
  attribute.as<abi::IXmlNode>()->get_FirstChild(value.put());
  root->SetAttribute(text("k").get(), text("<new>").get());
  EXPECT_EQ("&lt;new&gt;", Document::xmlOf(value));
  doc = Document();
  EXPECT_EQ("<a k=\"&lt;new&gt;\">one &amp; two</a>", Document::xmlOf(root.as<abi::IXmlNode>()));

  const auto split = other.textNode("ab\xF0\x9F\x98\x80"
                                    "c");
  ComPtr<abi::IXmlText> rest;
  EXPECT_EQ(0, split->SplitText(2, rest.put()));
  unsigned length = 0;
  rest.as<abi::IXmlCharacterData>()->get_Length(&length);
  EXPECT_EQ(3u, length) << "in UTF-16 units";
  EXPECT_EQ(kInvalid, split->SplitText(3, rest.put()));
});

// What could not be written is refused, and leaves everything as it was.
const Cell unwritable("xml.document.edit.unwritable", [] {
  Document doc;
  ASSERT_EQ(0, doc.load("<a k='v'><!--c--><?p d?><![CDATA[t]]>x</a>"));
  const std::string before = doc.xml();
  const auto put = [&](const char *xpath, std::u16string_view content) {
    ComPtr<abi::IXmlNode> node;
    doc.node.as<abi::IXmlNodeSelector>()->SelectSingleNode(text(xpath).get(), node.put());
    return node.as<abi::IXmlNodeSerializer>()->put_InnerText(StringHolder(content).get());
  };
  const std::pair<const char *, std::u16string_view> refused[] = {
      {"/a/comment()", u"a--b"}, {"/a/comment()", u"-"}, {"/a/processing-instruction()", u"?>"},
      {"/a/text()[1]", u"]]>"},  {"/a", {u"a\0b", 3}},   {"/a/@k", u"\x1B"},
      {"/a", u"\xFFFF"},         {"/a/@k", u"\xD800"}};
  for (const auto &[xpath, content] : refused)
    EXPECT_EQ(kInvalid, put(xpath, content)) << xpath;
  ComPtr<abi::IXmlProcessingInstruction> instruction;
  EXPECT_EQ(kInvalid, doc.document->CreateProcessingInstruction(text("XML").get(), nullptr,
                                                                instruction.put()));
  EXPECT_EQ(before, doc.xml());

  // Namespaces are declared where they are needed, and said as attributes.
  ComPtr<abi::IXmlElement> root;
  StringHolder said;
  doc.document->get_DocumentElement(root.put());
  EXPECT_EQ(0, root->SetAttribute(text("xmlns:n").get(), text("a&b").get()));
  EXPECT_EQ(0, root->GetAttribute(text("xmlns:n").get(), said.put()));
  EXPECT_EQ("a&b", utf8(said));
  EXPECT_NE(std::string::npos, doc.xml().find("<a xmlns:n=\"a&#38;b\" k="));
  EXPECT_EQ(0, doc.load(doc.xml()));
  EXPECT_EQ(kInvalid, root->SetAttribute(text("xmlns:n").get(), text("other").get()));
});

const Cell identifiers("xml.document.identifiers.changing", [] {
  Document doc;
  ASSERT_EQ(0, doc.load("<!DOCTYPE a [<!ATTLIST b i ID #IMPLIED>]><a><b i='1'/></a>"));
  const auto found = [&](const char *id) {
    ComPtr<abi::IXmlElement> element;
    doc.document->GetElementById(text(id).get(), element.put());
    return element;
  };
  const auto b = found("1");
  ASSERT_TRUE(b);
  b->SetAttribute(text("i").get(), text("2").get());
  EXPECT_FALSE(found("1"));
  EXPECT_TRUE(found("2"));
  EXPECT_EQ("<b i=\"2\"/>", doc.first("id('2')"));
  ComPtr<abi::IXmlElement> root;
  ComPtr<abi::IXmlNode> removed;
  doc.document->get_DocumentElement(root.put());
  root.as<abi::IXmlNode>()->RemoveChild(b.as<abi::IXmlNode>().get(), removed.put());
  EXPECT_FALSE(found("2"));
});

// Two threads that import from each other's document.
const Cell importing("xml.document.import.other_threads", [] {
  Document documents[2];
  for (Document &document : documents)
    ASSERT_EQ(0, document.load("<a><b/></a>"));
  const auto import = [&](int to) {
    for (int i = 0; i < 2000; ++i) {
      ComPtr<abi::IXmlElement> root;
      ComPtr<abi::IXmlNode> copy;
      documents[1 - to].document->get_DocumentElement(root.put());
      EXPECT_EQ(0,
                documents[to].document->ImportNode(root.as<abi::IXmlNode>().get(), 1, copy.put()));
    }
  };
  std::thread other(import, 0);
  import(1);
  other.join();
});

const Cell loading("xml.document.load.failing", [] {
  Document doc;
  EXPECT_EQ(static_cast<HRESULT>(0xC00CE558), doc.load(""));
  EXPECT_EQ(static_cast<HRESULT>(0xC00CE56D), doc.load("<a><b></a>"));
  EXPECT_EQ(static_cast<HRESULT>(0xC00CE556), doc.load("just text"));
  ASSERT_EQ(0, doc.load("<?xml version=\"1.0\" encoding=\"utf-16\"?><a>\xC3\xBC</a>"))
      << "the text is text, whatever it says of itself";
  EXPECT_EQ(static_cast<HRESULT>(0xC00CE556), doc.load("<a>&nope</a>"));
  EXPECT_EQ(static_cast<HRESULT>(0xC00CE556), doc.load("<p:a/>")) << "an unbound prefix";
  EXPECT_EQ("<?xml version=\"1.0\" encoding=\"UTF-8\"?><a>\xC3\xBC</a>", doc.xml())
      << "a failed load changes nothing";

  const auto nested = [](int levels) {
    std::string xml;
    for (int i = 0; i < levels; ++i)
      xml += "<a>";
    for (int i = 0; i < levels; ++i)
      xml += "</a>";
    return xml;
  };
  EXPECT_EQ(0, doc.load(nested(2000)));
  EXPECT_EQ(static_cast<HRESULT>(0xC00CEE81), doc.load(nested(5000)));
  EXPECT_EQ(0, doc.load("<a k='" + std::string(11 << 20, 'x') + "'>" + std::string(20 << 20, 'y') +
                        "</a>"));

  // Bytes say what they are.
  std::string bytes = "<?xml version='1.0' encoding='iso-8859-1'?><a>\xFC</a>";
  const auto size = static_cast<uint32_t>(bytes.size());
  const auto buffer = ComPtr<abi::IBuffer>::adopt(
      static_cast<abi::IBuffer *>(WRTCreateBufferWrappingBytes(bytes.data(), size)));
  buffer->put_Length(size);
  EXPECT_EQ(0, doc.document.as<abi::IXmlDocumentIO2>()->LoadXmlFromBuffer(buffer.get()));
  StringHolder inner;
  doc.document.as<abi::IXmlNodeSerializer>()->get_InnerText(inner.put());
  EXPECT_EQ("\xC3\xBC", utf8(inner));
});

// Nothing outside of the text is read, and entities do not grow without end.
const Cell entities("xml.document.load.entities", [] {
  const TemporaryFolder made;
  const auto secret = made.add("secret.txt", "SECRET");
  Document doc;
  doc.load("<!DOCTYPE a [<!ENTITY e SYSTEM 'file://" + secret.string() + "'>]><a>&e;</a>");
  ComPtr<abi::IXmlNodeSerializer> serializer = doc.node.as<abi::IXmlNodeSerializer>();
  StringHolder inner;
  serializer->get_InnerText(inner.put());
  EXPECT_EQ(std::string::npos, utf8(inner).find("SECRET"));
  EXPECT_EQ(std::string::npos, doc.xml().find("SECRET"));

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

struct UriHolder {
  ComPtr<abi::IUriRuntimeClass> uri;
  HRESULT status;

  explicit UriHolder(const std::string &uriText)
      : status(statics<abi::IUriRuntimeClassFactory>(u"Windows.Foundation.Uri")
                   ->CreateUri(text(uriText).get(), uri.put())) {}
  std::string operator()(HRESULT (WRT_ABI abi::IUriRuntimeClass::*part)(HSTRING *)) const {
    StringHolder value;
    return (uri.get()->*part)(value.put()) < 0 ? "failed" : utf8(value);
  }
};

const Cell uris("foundation.uri.parts.normal", [] {
  using U = abi::IUriRuntimeClass;
  const UriHolder uri("HTTP://me:pw@Example.COM:8080/a/./b/../c d.tar.gz?q=1&r#frag");
  ASSERT_EQ(0, uri.status);
  EXPECT_EQ("http://me:pw@example.com:8080/a/c%20d.tar.gz?q=1&r#frag", uri(&U::get_AbsoluteUri));
  EXPECT_EQ("example.com", uri(&U::get_Host));
  EXPECT_EQ("http me pw",
            uri(&U::get_SchemeName) + " " + uri(&U::get_UserName) + " " + uri(&U::get_Password));
  EXPECT_EQ("/a/c%20d.tar.gz .gz ?q=1&r #frag", uri(&U::get_Path) + " " + uri(&U::get_Extension) +
                                                    " " + uri(&U::get_Query) + " " +
                                                    uri(&U::get_Fragment));
  int port = 0;
  unsigned char flag = 0;
  uri.uri->get_Port(&port);
  EXPECT_EQ(8080, port);
  uri.uri->get_Suspicious(&flag);
  EXPECT_EQ(1, flag) << "a space had to be escaped";
  uri.uri->Equals(UriHolder("http://me:pw@example.com:8080/a/c%20d.tar.gz?q=1&r#frag").uri.get(),
                  &flag);
  EXPECT_EQ(1, flag);
  ComPtr<U> combined;
  ASSERT_EQ(0, UriHolder("http://h/a/b/c?q").uri->CombineUri(text("../d#e").get(), combined.put()));
  StringHolder absolute;
  combined->get_AbsoluteUri(absolute.put());
  EXPECT_EQ("http://h/a/d#e", utf8(absolute));
  // What begins with two slashes behind no host must not become one.
  const UriHolder hostless("le:/.//C:/x");
  EXPECT_EQ("le:/.//C:/x", hostless(&U::get_AbsoluteUri));
  EXPECT_EQ("", hostless(&U::get_Host));
  EXPECT_EQ("http://h:65535/", UriHolder("http://h:065535")(&U::get_AbsoluteUri));
  for (const char *bad : {"", "relative/path", "http://[::1", "http://a/%", "http://a:65536/",
                          "http://a:99999999/", "http://a:99999999999/"})
    EXPECT_EQ(kInvalid, UriHolder(bad).status) << bad;
  StringHolder escaped, unescaped;
  const auto escapes = statics<abi::IUriEscapeStatics>(u"Windows.Foundation.Uri");
  escapes->EscapeComponent(text("a b/\xC3\xBC").get(), escaped.put());
  EXPECT_EQ("a%20b%2F%C3%BC", utf8(escaped));
  escapes->UnescapeComponent(escaped.get(), unescaped.put());
  EXPECT_EQ("a b/\xC3\xBC", utf8(unescaped));
  EXPECT_EQ(static_cast<HRESULT>(0x80004001), uri.uri->get_Domain(escaped.put()));
});

const Cell resourceMap("foundation.resource_map.keys.normal", [] {
  using Map = abi::IMap__2_WRTIInspectable_P_WRTIInspectable_P;
  const auto map = activate<Map>(u"Windows.UI.Xaml.ResourceDictionary");
  ASSERT_TRUE(map);
  const auto values = statics<abi::IPropertyValueStatics>(u"Windows.Foundation.PropertyValue");
  const auto boxed = [&](const char *content) {
    ComPtr<abi::IInspectable> value;
    values->CreateString(text(content).get(), value.put());
    return value;
  };
  unsigned char replaced = 9;
  EXPECT_EQ(0, map->Insert(boxed("k").get(), boxed("1").get(), &replaced));
  EXPECT_EQ(0, replaced);
  EXPECT_EQ(0, map->Insert(boxed("k").get(), boxed("2").get(), &replaced));
  EXPECT_EQ(1, replaced) << "strings are keys by their text";
  EXPECT_EQ(0, map->Insert(map.get(), boxed("3").get(), &replaced));
  unsigned size = 0;
  map->get_Size(&size);
  EXPECT_EQ(2u, size);
  ComPtr<abi::IInspectable> value;
  EXPECT_EQ(0, map->Lookup(boxed("k").get(), value.put()));
  StringHolder content;
  value.as<abi::IPropertyValue>()->GetString(content.put());
  EXPECT_EQ("2", utf8(content));
  EXPECT_EQ(static_cast<HRESULT>(0x8000000B), map->Lookup(boxed("none").get(), value.put()));
  EXPECT_EQ(0, map->Remove(map.get())) << "which holds itself";
});

const Cell apiInformation("foundation.api_information.present.normal", [] {
  const auto api =
      statics<abi::IApiInformationStatics>(u"Windows.Foundation.Metadata.ApiInformation");
  using Api = abi::IApiInformationStatics;
  const auto is = [&](auto member, const char *type, auto... rest) {
    unsigned char answer = 9;
    const StringHolder name = text(type);
    return (api.get()->*member)(name.get(), rest..., &answer) < 0 ? -1 : int(answer);
  };
  const char *const kUri = "Windows.Foundation.Uri";
  const StringHolder combine = text("CombineUri"), host = text("Host"), length = text("Length");
  EXPECT_EQ(1, is(&Api::IsTypePresent, kUri));
  EXPECT_EQ(0, is(&Api::IsTypePresent, "Windows.No.Such"));
  EXPECT_EQ(-1, is(&Api::IsTypePresent, ""));
  EXPECT_EQ(1, is(&Api::IsMethodPresent, kUri, combine.get()));
  EXPECT_EQ(0, is(&Api::IsMethodPresent, kUri, host.get()));
  for (unsigned arity : {0u, 1u, 2u})
    EXPECT_EQ(arity == 1, is(&Api::IsMethodPresentWithArity, kUri, combine.get(), arity));
  EXPECT_EQ(1, is(&Api::IsPropertyPresent, kUri, host.get()));
  EXPECT_EQ(1, is(&Api::IsReadOnlyPropertyPresent, kUri, host.get()));
  EXPECT_EQ(0, is(&Api::IsWriteablePropertyPresent, kUri, host.get()));
  EXPECT_EQ(1,
            is(&Api::IsWriteablePropertyPresent, "Windows.Storage.Streams.IBuffer", length.get()));
  EXPECT_EQ(1, is(&Api::IsEnumNamedValuePresent, "Windows.Foundation.AsyncStatus",
                  text("Canceled").get()));
  for (unsigned short major : {1, 5, 6})
    EXPECT_EQ(major <= 5, is(&Api::IsApiContractPresentByMajor,
                             "Windows.Foundation.UniversalApiContract", major));
});

const Cell preferences("system.preferences.environment.normal", [] {
  setenv("LC_ALL", "de_AT.UTF-8", 1);
  const auto globalization = statics<abi::IGlobalizationPreferencesStatics>(
      u"Windows.System.UserProfile.GlobalizationPreferences");
  ComPtr<abi::IVectorView__1_WRTHSTRING> languages;
  StringHolder language, region, version;
  globalization->get_Languages(languages.put());
  languages->GetAt(0, language.put());
  globalization->get_HomeGeographicRegion(region.put());
  unsetenv("LC_ALL");
  EXPECT_EQ("de-AT AT", utf8(language) + " " + utf8(region));

  ComPtr<abi::IAnalyticsVersionInfo> info;
  ASSERT_EQ(0, statics<abi::IAnalyticsInfoStatics>(u"Windows.System.Profile.AnalyticsInfo")
                   ->get_VersionInfo(info.put()));
  ASSERT_EQ(0, info->get_DeviceFamilyVersion(version.put()));
  EXPECT_GT(std::stoull(utf8(version)) >> 48, 2u) << "the kernel's major number";
});

} // namespace
} // namespace wrt::test
