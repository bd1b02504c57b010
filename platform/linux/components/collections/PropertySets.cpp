// The maps that can be activated: Windows.Foundation.Collections.PropertySet, ValueSet, StringMap.

#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/components/collections/ObservableMap.h"

#include <abi/Windows.Foundation.Collections.abi.h>

namespace wrt::implement {
namespace {

constexpr char16_t kPropertySet[] = u"Windows.Foundation.Collections.PropertySet";
constexpr char16_t kValueSet[] = u"Windows.Foundation.Collections.ValueSet";
constexpr char16_t kStringMap[] = u"Windows.Foundation.Collections.StringMap";

template <auto &name>
class PropertySet final : public ObservableMapObject<String, Inspectable, abi::IPropertySet> {
  std::u16string_view runtimeClassName() const override { return name; }
};

class StringMap final : public ObservableMapObject<String, String> {
  std::u16string_view runtimeClassName() const override { return kStringMap; }
};

template <class Class>
using Factory = DefaultActivationFactory<Class>;

const activation::Registration
    propertySet(kPropertySet, activation::makeFactory<Factory<PropertySet<kPropertySet>>>);
const activation::Registration valueSet(kValueSet,
                                        activation::makeFactory<Factory<PropertySet<kValueSet>>>);
const activation::Registration stringMap(kStringMap, activation::makeFactory<Factory<StringMap>>);

} // namespace
} // namespace wrt::implement
