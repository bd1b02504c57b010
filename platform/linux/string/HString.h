/// Strings of the embedded platform as its own components use them. A null handle is the empty
/// string everywhere.
#ifndef WRT_HSTRING_H
#define WRT_HSTRING_H

#include <WRTObjcBridge/WRTTypes.h>
#include <string_view>

namespace wrt {

/// A new string (+1) with a copy of `text`; null for empty text. Fails when memory runs out.
WRT_DLLEXPORT HRESULT makeString(std::u16string_view text, HSTRING *string);
/// A new string (+1) of `length` units that the caller fills through `*text` before anybody else
/// sees it; its terminator stands already. For a length of 0 the string and `*text` are null.
WRT_DLLEXPORT HRESULT makeUninitializedString(uint32_t length, HSTRING *string, char16_t **text);
/// The string's units, borrowed from it, followed by a 0.
WRT_DLLEXPORT std::u16string_view viewOf(HSTRING string);

} // namespace wrt

#endif
