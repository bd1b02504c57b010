#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/components/collections/Map.h"
#include "platform/linux/components/foundation/BoxedText.h"

#include <abi/Windows.UI.Xaml.abi.h>

namespace wrt::components {

using namespace implement;

namespace {

constexpr std::u16string_view kName = u"Windows.UI.Xaml.ResourceDictionary";

/// Keys: boxed strings by their text, every other object by what it is.
struct TextOrObject : Inspectable {
  class Key : public ObjectKey<abi::IInspectable> {
  public:
    Key(const ComPtr<abi::IInspectable> &object)
        : ObjectKey(object), text_(unboxText(object.get())) {}

    bool operator<(const Key &other) const {
      return text_ || other.text_ ? text_ < other.text_ : ObjectKey::operator<(other);
    }

  private:
    std::optional<std::u16string> text_;
  };
};

} // namespace
} // namespace wrt::components

namespace wrt::implement {

// The keys are objects to everybody else.
using components::TextOrObject;
template <>
inline constexpr GUID kIdentifier<IMap<TextOrObject, Inspectable>> =
    kIdentifier<IMap<Inspectable, Inspectable>>;
template <>
inline constexpr GUID kIdentifier<IMapView<TextOrObject, Inspectable>> =
    kIdentifier<IMapView<Inspectable, Inspectable>>;
template <>
inline constexpr GUID kIdentifier<IKeyValuePair<TextOrObject, Inspectable>> =
    kIdentifier<IKeyValuePair<Inspectable, Inspectable>>;
template <>
inline constexpr GUID kIdentifier<IIterable<PairOf<TextOrObject, Inspectable>>> =
    kIdentifier<IIterable<PairOf<Inspectable, Inspectable>>>;
template <>
inline constexpr GUID kIdentifier<IIterator<PairOf<TextOrObject, Inspectable>>> =
    kIdentifier<IIterator<PairOf<Inspectable, Inspectable>>>;

} // namespace wrt::implement

namespace wrt::components {
namespace {

/// Windows.UI.Xaml.ResourceDictionary as a plain map: there are no merged and no theme
/// dictionaries.
class ResourceDictionary final
    : public MapObject<TextOrObject, Inspectable, abi::IResourceDictionary> {
public:
  HRESULT WRT_ABI get_Source(abi::IUriRuntimeClass **result) override { return none(result); }
  HRESULT WRT_ABI put_Source(abi::IUriRuntimeClass *) override { return status::kNotImplemented; }
  HRESULT WRT_ABI
  get_MergedDictionaries(abi::IVector__1_WRTResourceDictionary_P **result) override {
    return none(result);
  }
  HRESULT WRT_ABI
  get_ThemeDictionaries(abi::IMap__2_WRTIInspectable_P_WRTIInspectable_P **result) override {
    return none(result);
  }

private:
  std::u16string_view runtimeClassName() const override { return kName; }

  template <class Result>
  static HRESULT none(Result **result) {
    if (result != nullptr)
      *result = nullptr;
    return status::kNotImplemented;
  }
};

class ResourceDictionaryFactory final : public DefaultActivationFactory<ResourceDictionary> {
  std::u16string_view runtimeClassName() const override { return kName; }
};

const activation::Registration registration(kName,
                                            activation::makeFactory<ResourceDictionaryFactory>);

} // namespace
} // namespace wrt::components
