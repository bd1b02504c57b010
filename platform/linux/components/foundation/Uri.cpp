#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/components/foundation/ParsedUri.h"
#include "platform/linux/components/foundation/Text.h"
#include "platform/linux/string/HString.h"

#include <WRTBridge.h>

#include <abi/Windows.Foundation.abi.h>

namespace wrt::components {

using namespace implement;

namespace {

constexpr std::u16string_view kName = u"Windows.Foundation.Uri";

std::string textOf(HSTRING string) { return encodeUtf8(viewOf(string)); }

/// Windows.Foundation.Uri.
class Uri final
    : public Implements<abi::IUriRuntimeClass, abi::IUriRuntimeClassWithAbsoluteCanonicalUri,
                        abi::IStringable> {
public:
  explicit Uri(ParsedUri uri) : uri_(std::move(uri)) {}

  HRESULT WRT_ABI get_AbsoluteUri(HSTRING *result) override { return give(uri_.absolute, result); }
  HRESULT WRT_ABI get_DisplayUri(HSTRING *result) override { return give(uri_.display, result); }
  HRESULT WRT_ABI get_Extension(HSTRING *result) override { return give(uri_.extension(), result); }
  HRESULT WRT_ABI get_Fragment(HSTRING *result) override { return give(uri_.fragment, result); }
  HRESULT WRT_ABI get_Host(HSTRING *result) override { return give(uri_.host, result); }
  HRESULT WRT_ABI get_Password(HSTRING *result) override { return give(uri_.password, result); }
  HRESULT WRT_ABI get_Path(HSTRING *result) override { return give(uri_.path, result); }
  HRESULT WRT_ABI get_Query(HSTRING *result) override { return give(uri_.query, result); }
  HRESULT WRT_ABI get_RawUri(HSTRING *result) override { return give(uri_.raw, result); }
  HRESULT WRT_ABI get_SchemeName(HSTRING *result) override { return give(uri_.scheme, result); }
  HRESULT WRT_ABI get_UserName(HSTRING *result) override { return give(uri_.userName, result); }
  HRESULT WRT_ABI get_AbsoluteCanonicalUri(HSTRING *result) override {
    return give(uri_.absolute, result);
  }
  HRESULT WRT_ABI get_DisplayIri(HSTRING *result) override {
    return give(unescapeUriComponent(uri_.display), result);
  }
  HRESULT WRT_ABI ToString(HSTRING *result) override { return give(uri_.display, result); }
  HRESULT WRT_ABI get_Port(int *port) override {
    if (port == nullptr)
      return status::kPointer;
    *port = uri_.port;
    return status::kOk;
  }
  HRESULT WRT_ABI get_Suspicious(unsigned char *suspicious) override {
    if (suspicious == nullptr)
      return status::kPointer;
    *suspicious = uri_.suspicious;
    return status::kOk;
  }

  // Which part of a host is a domain is known to registries alone.
  HRESULT WRT_ABI get_Domain(HSTRING *result) override {
    if (result != nullptr)
      *result = nullptr;
    return status::kNotImplemented;
  }
  HRESULT WRT_ABI get_QueryParsed(abi::IWwwFormUrlDecoderRuntimeClass **result) override {
    if (result != nullptr)
      *result = nullptr;
    return status::kNotImplemented;
  }

  HRESULT WRT_ABI Equals(abi::IUriRuntimeClass *other, unsigned char *result) override {
    if (result == nullptr)
      return status::kPointer;
    *result = 0;
    if (other == nullptr)
      return status::kInvalidArgument;
    HSTRING text = nullptr;
    const HRESULT status = other->get_AbsoluteUri(&text);
    *result = status >= 0 && textOf(text) == uri_.absolute;
    WRTHSTRINGRelease(text);
    return status;
  }
  HRESULT WRT_ABI CombineUri(HSTRING relative, abi::IUriRuntimeClass **result) override {
    return makeFrom(combineUri(uri_.absolute, textOf(relative)), result);
  }

  static HRESULT makeFrom(std::optional<ParsedUri> uri, abi::IUriRuntimeClass **result) {
    if (result == nullptr)
      return status::kPointer;
    *result = nullptr;
    return uri ? makeInto<Uri>(result, std::move(*uri)) : status::kInvalidArgument;
  }
  static HRESULT give(const std::string &text, HSTRING *result) {
    return result == nullptr ? status::kPointer : makeString(toUtf16(text), result);
  }

private:
  std::u16string_view runtimeClassName() const override { return kName; }

  const ParsedUri uri_;
};

class UriFactory final
    : public ActivationFactory<abi::IUriRuntimeClassFactory, abi::IUriEscapeStatics> {
public:
  HRESULT WRT_ABI CreateUri(HSTRING uri, abi::IUriRuntimeClass **result) override {
    return Uri::makeFrom(parseUri(textOf(uri)), result);
  }
  HRESULT WRT_ABI CreateWithRelativeUri(HSTRING base, HSTRING relative,
                                        abi::IUriRuntimeClass **result) override {
    return Uri::makeFrom(combineUri(textOf(base), textOf(relative)), result);
  }
  HRESULT WRT_ABI UnescapeComponent(HSTRING text, HSTRING *result) override {
    return Uri::give(unescapeUriComponent(textOf(text)), result);
  }
  HRESULT WRT_ABI EscapeComponent(HSTRING text, HSTRING *result) override {
    return Uri::give(escapeUriComponent(textOf(text)), result);
  }

private:
  std::u16string_view runtimeClassName() const override { return kName; }
};

const activation::Registration registration(kName, activation::makeFactory<UriFactory>);

} // namespace
} // namespace wrt::components
