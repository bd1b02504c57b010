#include <WRTBridgeUtil.h>

#include <stdlib.h>

extern "C" {
HSTRING testMakeString(const char16_t *text, uint32_t length);
const char16_t *testStringText(HSTRING handle, uint32_t *length);

NSString *WRTHSTRINGToCFString(HSTRING string) {
  uint32_t length = 0;
  const char16_t *text = testStringText(string, &length);
  return [[NSString alloc] initWithCharacters:reinterpret_cast<const unichar *>(text)
                                       length:length];
}

HSTRING WRTHSTRINGFromCFString(NSString *string) {
  const NSUInteger length = [string length];
  if (length == 0)
    return nullptr;
  auto *units = static_cast<unichar *>(malloc(length * sizeof(unichar)));
  [string getCharacters:units range:NSRange{0, length}];
  HSTRING handle = testMakeString(reinterpret_cast<const char16_t *>(units), length);
  free(units);
  return handle;
}
}
