// What the component takes from its platform, over combase. It tells the program of every string,
// block and object, so that the ledger covers both sides.

#include <windows.h>

#include <objbase.h>
#include <winstring.h>

#include "platform/linux/ledger/WRTLedger.h"
#include "platform/linux/string/HString.h"
#include "tests/wine/component/Program.h"

#include <WRTBridge.h>
#include <WRTStatus.h>

using wrt::test::program;

static_assert(sizeof(WCHAR) == sizeof(char16_t));

namespace wrt {

HRESULT makeString(std::u16string_view text, HSTRING *string) {
  const HRESULT result = WindowsCreateString(reinterpret_cast<const WCHAR *>(text.data()),
                                             static_cast<uint32_t>(text.size()), string);
  if (*string)
    program().countHandleMade(*string);
  return result;
}

std::u16string_view viewOf(HSTRING string) {
  UINT32 length = 0;
  const WCHAR *text = WindowsGetStringRawBuffer(string, &length);
  return {reinterpret_cast<const char16_t *>(text), length};
}

} // namespace wrt

extern "C" {

void WRTLedgerAdd(WRTLedgerKind kind, int64_t amount) { program().addToLedger(kind, amount); }

HRESULT WRTHSTRINGDuplicate(HSTRING string, HSTRING *copy) {
  const HRESULT result = WindowsDuplicateString(string, copy);
  if (*copy)
    program().countHandleMade(*copy);
  return result;
}

HRESULT WRTHSTRINGRelease(HSTRING string) {
  if (string)
    program().countHandleReleased(string);
  return WindowsDeleteString(string);
}

void *WRTTaskMemAlloc(size_t size) {
  void *block = CoTaskMemAlloc(size);
  if (block)
    WRTLedgerAdd(kWRTLedgerTaskBlocks, 1);
  return block;
}

void WRTTaskMemFree(void *block) {
  if (!block)
    return;
  WRTLedgerAdd(kWRTLedgerTaskBlocks, -1);
  CoTaskMemFree(block);
}

void WRTIUnknownSafeRelease(void *object) {
  if (object)
    static_cast<IUnknown *>(object)->Release();
}

} // extern "C"
