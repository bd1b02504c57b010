#include "platform/linux/components/foundation/BoxedText.h"

#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/implement/StringHolder.h"

#include <abi/Windows.Foundation.abi.h>

namespace wrt::components {

using namespace implement;

ComPtr<abi::IInspectable> boxText(std::u16string_view text) {
  ComPtr<abi::IInspectable> value;
  const auto factory = activation::findFactory(u"Windows.Foundation.PropertyValue");
  if (const auto statics = factory.as<abi::IPropertyValueStatics>())
    statics->CreateString(StringHolder(text).get(), value.put());
  return value;
}

std::optional<std::u16string> unboxText(abi::IInspectable *value) {
  const auto boxed = ComPtr(value).as<abi::IPropertyValue>();
  int type = 0;
  StringHolder text;
  if (!boxed || boxed->get_Type(&type) < 0 || type != WRTPropertyTypeString ||
      boxed->GetString(text.put()) < 0)
    return std::nullopt;
  return std::u16string(text.view());
}

} // namespace wrt::components
