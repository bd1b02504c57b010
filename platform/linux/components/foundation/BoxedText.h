#ifndef WRT_BOXED_TEXT_H
#define WRT_BOXED_TEXT_H

#include "platform/linux/implement/ComPtr.h"

#include <optional>
#include <string>
#include <string_view>

namespace wrt::components {

/// The text as an `IPropertyValue`; null when there is no such class.
implement::ComPtr<abi::IInspectable> boxText(std::u16string_view text);
/// The text in a boxed string (borrowed); nothing for null and for anything else.
std::optional<std::u16string> unboxText(abi::IInspectable *value);

} // namespace wrt::components

#endif
