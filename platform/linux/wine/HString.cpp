// Strings are combase's own. The functions of HString.h are replaced too, so that the string
// conversion and the components of this process make such strings as well.

#include "platform/linux/string/HString.h"

#include "platform/linux/wine/StringLedger.h"
#include "platform/linux/wine/WindowsFunctions.h"

#include <WRTStatus.h>
#include <string>

using wrt::wine::windows;

namespace wrt {

HRESULT makeString(std::u16string_view text, HSTRING *string) {
  *string = nullptr;
  if (text.size() > UINT32_MAX)
    return status::kInvalidArgument;
  const HRESULT result =
      windows().WindowsCreateString(text.data(), static_cast<uint32_t>(text.size()), string);
  if (*string != nullptr)
    wine::countHandleMade(*string);
  return result;
}

// combase promotes a buffer in place: the string's text is the buffer, which can still be filled.
HRESULT makeUninitializedString(uint32_t length, HSTRING *string, char16_t **text) {
  *string = nullptr;
  *text = nullptr;
  if (length == 0)
    return status::kOk;
  void *buffer;
  HRESULT result = windows().WindowsPreallocateStringBuffer(length, text, &buffer);
  if (result >= 0)
    result = windows().WindowsPromoteStringBuffer(buffer, string);
  if (result < 0) {
    *text = nullptr;
    return result;
  }
  wine::countHandleMade(*string);
  return result;
}

std::u16string_view viewOf(HSTRING string) {
  uint32_t length = 0;
  const char16_t *text = windows().WindowsGetStringRawBuffer(string, &length);
  return {text, length};
}

} // namespace wrt

WRT_DLLEXPORT HRESULT WRTHSTRINGCreateReference(const char16_t *text, uint32_t length,
                                                WRTHSTRINGHeader *header, HSTRING *string) {
  *string = nullptr;
  return windows().WindowsCreateStringReference(text, length, header, string);
}

WRT_DLLEXPORT uint32_t WRTHSTRINGLength(const char16_t *text) {
  return text == nullptr ? 0 : static_cast<uint32_t>(std::char_traits<char16_t>::length(text));
}

WRT_DLLEXPORT HRESULT WRTHSTRINGDuplicate(HSTRING string, HSTRING *copy) {
  *copy = nullptr;
  const HRESULT result = windows().WindowsDuplicateString(string, copy);
  if (*copy != nullptr)
    wrt::wine::countHandleMade(*copy);
  return result;
}

WRT_DLLEXPORT HRESULT WRTHSTRINGRelease(HSTRING string) {
  if (string == nullptr)
    return wrt::status::kOk;
  // Counted first: once given up, another thread may get a string of the same address.
  wrt::wine::countHandleReleased(string);
  return windows().WindowsDeleteString(string);
}
