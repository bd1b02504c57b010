#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/components/foundation/ApiTable.h"
#include "platform/linux/components/foundation/Text.h"
#include "platform/linux/string/HString.h"

#include <abi/Windows.Foundation.Metadata.abi.h>

#include <algorithm>
#include <span>

namespace wrt::components {

using namespace implement;

namespace {

/// Windows.Foundation.Metadata.ApiInformation: present is what the catalogue declares.
class ApiInformation final : public ActivationFactory<abi::IApiInformationStatics> {
public:
  HRESULT WRT_ABI IsTypePresent(HSTRING type, unsigned char *result) override {
    return answer("type " + text(type), result);
  }
  HRESULT WRT_ABI IsMethodPresent(HSTRING type, HSTRING name, unsigned char *result) override {
    return member("method ", type, name, "", result);
  }
  HRESULT WRT_ABI IsMethodPresentWithArity(HSTRING type, HSTRING name, unsigned count,
                                           unsigned char *result) override {
    return member("method ", type, name, " " + std::to_string(count), result);
  }
  HRESULT WRT_ABI IsEventPresent(HSTRING type, HSTRING name, unsigned char *result) override {
    return member("event ", type, name, "", result);
  }
  HRESULT WRT_ABI IsPropertyPresent(HSTRING type, HSTRING name, unsigned char *result) override {
    return member("property ", type, name, "", result);
  }
  HRESULT WRT_ABI IsReadOnlyPropertyPresent(HSTRING type, HSTRING name,
                                            unsigned char *result) override {
    return member("property ", type, name, " readonly", result);
  }
  HRESULT WRT_ABI IsWriteablePropertyPresent(HSTRING type, HSTRING name,
                                             unsigned char *result) override {
    return member("property ", type, name, " writeable", result);
  }
  HRESULT WRT_ABI IsEnumNamedValuePresent(HSTRING type, HSTRING name,
                                          unsigned char *result) override {
    return member("value ", type, name, "", result);
  }
  HRESULT WRT_ABI IsApiContractPresentByMajor(HSTRING contract, unsigned short major,
                                              unsigned char *result) override {
    return IsApiContractPresentByMajorAndMinor(contract, major, 0, result);
  }
  HRESULT WRT_ABI IsApiContractPresentByMajorAndMinor(HSTRING contract, unsigned short major,
                                                      unsigned short minor,
                                                      unsigned char *result) override {
    // The contracts of Windows 10 SDK 10.0.16299.0.
    constexpr std::pair<std::string_view, int> kContracts[] = {
        {"Windows.Foundation.FoundationContract", 3},
        {"Windows.Foundation.UniversalApiContract", 5}};
    if (result == nullptr)
      return status::kPointer;
    *result = std::ranges::any_of(kContracts, [&](const auto &known) {
      return known.first == text(contract) &&
             (major < known.second || (major == known.second && minor == 0));
    });
    return contract == nullptr ? status::kInvalidArgument : status::kOk;
  }

private:
  std::u16string_view runtimeClassName() const override {
    return u"Windows.Foundation.Metadata.ApiInformation";
  }

  static std::string text(HSTRING string) { return encodeUtf8(viewOf(string)); }

  static HRESULT member(const char *kind, HSTRING type, HSTRING name, const std::string &fact,
                        unsigned char *result) {
    return answer(kind + text(type) + " " + text(name) + fact, result);
  }
  static HRESULT answer(const std::string &line, unsigned char *result) {
    if (result == nullptr)
      return status::kPointer;
    *result = std::ranges::binary_search(std::span(kApiTable, kApiTableSize), line);
    return line.ends_with(' ') ? status::kInvalidArgument : status::kOk;
  }
};

const activation::Registration registration(u"Windows.Foundation.Metadata.ApiInformation",
                                            activation::makeFactory<ApiInformation>);

} // namespace
} // namespace wrt::components
