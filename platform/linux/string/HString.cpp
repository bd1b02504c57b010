#include "platform/linux/string/HString.h"

#include "platform/linux/ledger/WRTLedger.h"

#include <WRTBridge.h>
#include <WRTStatus.h>
#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>
#include <string>
#include <type_traits>

namespace {

/// What a handle points to. In a string reference it lies in the room that the caller lends.
struct String {
  uint32_t length; ///< in UTF-16 units
  bool isReference;
  const char16_t *text; ///< `text[length]` is 0
};
static_assert(sizeof(String) <= sizeof(WRTHSTRINGHeader));
static_assert(alignof(String) <= alignof(WRTHSTRINGHeader));
static_assert(std::is_trivially_destructible_v<String>, "nobody destroys a string reference");

/// A string that owns its text, which follows it directly.
struct SharedString : String {
  std::atomic<uint32_t> references{1};

  explicit SharedString(uint32_t length) : String{length, false, ownText()} {
    ownText()[length] = u'\0';
  }
  char16_t *ownText() { return reinterpret_cast<char16_t *>(this + 1); }
};

String *stringOf(HSTRING handle) { return reinterpret_cast<String *>(handle); }
HSTRING handleOf(String *string) { return reinterpret_cast<HSTRING>(string); }

} // namespace

namespace wrt {

HRESULT makeUninitializedString(uint32_t length, HSTRING *string, char16_t **text) {
  *string = nullptr;
  *text = nullptr;
  if (length == 0)
    return status::kOk;
  void *memory = std::malloc(sizeof(SharedString) + (size_t{length} + 1) * sizeof(char16_t));
  if (memory == nullptr)
    return status::kOutOfMemory;
  auto *shared = new (memory) SharedString(length);
  WRTLedgerAdd(kWRTLedgerStrings, 1);
  WRTLedgerAdd(kWRTLedgerStringHandles, 1);
  *string = handleOf(shared);
  *text = shared->ownText();
  return status::kOk;
}

HRESULT makeString(std::u16string_view text, HSTRING *string) {
  if (text.size() > UINT32_MAX) {
    *string = nullptr;
    return status::kInvalidArgument;
  }
  char16_t *copy;
  const HRESULT result = makeUninitializedString(static_cast<uint32_t>(text.size()), string, &copy);
  if (result >= 0)
    std::ranges::copy(text, copy);
  return result;
}

std::u16string_view viewOf(HSTRING string) {
  if (string == nullptr)
    return u"";
  return {stringOf(string)->text, stringOf(string)->length};
}

} // namespace wrt

using namespace wrt;

WRT_DLLEXPORT HRESULT WRTHSTRINGCreateReference(const char16_t *text, uint32_t length,
                                                WRTHSTRINGHeader *header, HSTRING *string) {
  if (string == nullptr || header == nullptr)
    return status::kInvalidArgument;
  *string = nullptr;
  if (text == nullptr)
    return length == 0 ? status::kOk : status::kPointer;
  if (text[length] != u'\0')
    return status::kInvalidArgument;
  if (length != 0)
    *string = handleOf(new (header) String{length, true, text});
  return status::kOk;
}

WRT_DLLEXPORT uint32_t WRTHSTRINGLength(const char16_t *text) {
  return text == nullptr ? 0 : static_cast<uint32_t>(std::char_traits<char16_t>::length(text));
}

WRT_DLLEXPORT HRESULT WRTHSTRINGDuplicate(HSTRING string, HSTRING *copy) {
  if (copy == nullptr)
    return status::kInvalidArgument;
  *copy = nullptr;
  if (string == nullptr)
    return status::kOk;
  if (stringOf(string)->isReference)
    return makeString(viewOf(string), copy);
  static_cast<SharedString *>(stringOf(string))->references.fetch_add(1, std::memory_order_relaxed);
  WRTLedgerAdd(kWRTLedgerStringHandles, 1);
  *copy = string;
  return status::kOk;
}

WRT_DLLEXPORT HRESULT WRTHSTRINGRelease(HSTRING string) {
  if (string == nullptr || stringOf(string)->isReference)
    return status::kOk;
  auto *shared = static_cast<SharedString *>(stringOf(string));
  WRTLedgerAdd(kWRTLedgerStringHandles, -1);
  if (shared->references.fetch_sub(1, std::memory_order_acq_rel) == 1) {
    shared->~SharedString();
    std::free(shared);
    WRTLedgerAdd(kWRTLedgerStrings, -1);
  }
  return status::kOk;
}
