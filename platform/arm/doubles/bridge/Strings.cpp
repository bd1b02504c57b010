#include "platform/arm/doubles/Host.h"
#include "platform/arm/doubles/bridge/Bridge.h"

#include <stdlib.h>
#include <string.h>

namespace {

/// What a handle points at; a string reference has it in its header.
struct String {
  int32_t references; // 0: a reference, which nobody counts
  uint32_t length;
  const char16_t *text;
};
static_assert(sizeof(String) <= sizeof(WRTHSTRINGHeader));

int live = 0;

String *stringOf(HSTRING handle) { return reinterpret_cast<String *>(handle); }

HSTRING make(const char16_t *text, uint32_t length) {
  const size_t size = (length + 1) * sizeof(char16_t);
  auto *string = static_cast<String *>(malloc(sizeof(String) + size));
  auto *copy = reinterpret_cast<char16_t *>(string + 1);
  memcpy(copy, text, size - sizeof(char16_t));
  copy[length] = 0;
  *string = {1, length, copy};
  ++live;
  return reinterpret_cast<HSTRING>(string);
}

} // namespace

extern "C" {

int testLiveStrings(void) { return live; }

/// For the double of the string utility: a new handle, and a handle's characters.
HSTRING testMakeString(const char16_t *text, uint32_t length) { return make(text, length); }

const char16_t *testStringText(HSTRING handle, uint32_t *length) {
  *length = handle ? stringOf(handle)->length : 0;
  return handle ? stringOf(handle)->text : u"";
}

HRESULT WRTHSTRINGCreateReference(const char16_t *text, uint32_t length, WRTHSTRINGHeader *header,
                                  HSTRING *string) {
  if (text[length] != 0)
    hostEnd("a string reference without its terminating null");
  auto *place = reinterpret_cast<String *>(header);
  *place = {0, length, text};
  *string = reinterpret_cast<HSTRING>(place);
  return 0;
}

uint32_t WRTHSTRINGLength(const char16_t *text) {
  uint32_t length = 0;
  while (text[length])
    ++length;
  return length;
}

HRESULT WRTHSTRINGDuplicate(HSTRING string, HSTRING *copy) {
  *copy = string;
  if (!string)
    return 0;
  String *original = stringOf(string);
  if (original->references == 0)
    *copy = make(original->text, original->length);
  else
    ++original->references;
  return 0;
}

HRESULT WRTHSTRINGRelease(HSTRING string) {
  if (!string)
    return 0;
  String *counted = stringOf(string);
  if (counted->references < 1)
    hostEnd("a string is released that nobody owns");
  if (--counted->references == 0) {
    --live;
    free(counted);
  }
  return 0;
}
}
