#include <ClassReceiver.h>
#include <WRTBridgeUtil.h>

#import <Foundation/Foundation.h>

#include "platform/linux/string/ExactString.h"
#include "platform/linux/string/HString.h"

static_assert(sizeof(unichar) == sizeof(char16_t));

extern "C" WRT_DLLEXPORT NSString *WRTHSTRINGToCFString(HSTRING string) {
  const std::u16string_view text = wrt::viewOf(string);
  NSString *result =
      [[WRT_CLASS(NSString) alloc] initWithCharacters:reinterpret_cast<const unichar *>(text.data())
                                               length:text.size()];
  if ([result length] == text.size())
    return result;
  // GNUstep gives nil for units that are no text and leaves a leading byte order mark out.
  [result release];
  return [[WRT_CLASS(WRTExactString) alloc] initWithUnits:text];
}

extern "C" WRT_DLLEXPORT HSTRING WRTHSTRINGFromCFString(NSString *string) {
  const NSUInteger length = [string length];
  if (length > UINT32_MAX)
    return nullptr;
  HSTRING result;
  char16_t *text;
  if (wrt::makeUninitializedString(static_cast<uint32_t>(length), &result, &text) >= 0 &&
      text != nullptr)
    [string getCharacters:reinterpret_cast<unichar *>(text) range:NSMakeRange(0, length)];
  return result;
}
