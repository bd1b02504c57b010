// The string bridge and the exported string conversions.

#include "platform/linux/implement/StringHolder.h"
#include "tests/support/Bridges.h"

#include <WRTBridge.h>
#import <WRTObjcBridge/WRTConversions.h>
#import <WRTObjcBridge/WRTHSTRINGBridge.h>

#import <objc/runtime.h>

using namespace wrt::test;

@interface StringBridgeOfOnesOwn : WRTHSTRINGBridge
@end
@implementation StringBridgeOfOnesOwn
@end

namespace {

const Cell roundTrip("string.convert.both_ways.normal", [] {
  std::u16string million(1000000, u'x');
  million.back() = u'ß';
  const std::u16string texts[] = {u"a",      std::u16string(u"a\0b", 3), u"\xD800x",
                                  u"\xDC00", u"\xD83D\xDE00 emoji",      million};
  for (const std::u16string &text : texts) {
    const wrt::implement::StringHolder original(text);
    NSString *string = WRTCreateNSStringFromHSTRING(original.get());
    ASSERT_EQ(text.size(), [string length]);
    EXPECT_EQ(text.back(), [string characterAtIndex:text.size() - 1]);
    const auto copy = wrt::implement::StringHolder::adopt(WRTCreateHSTRINGFromNSString(string));
    EXPECT_EQ(text, copy.view());
  }
});

const Cell empty("string.convert.both_ways.empty", [] {
  EXPECT_EQ(nullptr, WRTCreateHSTRINGFromNSString(@""));
  EXPECT_EQ(nullptr, WRTCreateHSTRINGFromNSString(nil));
  EXPECT_EQ(0u, [WRTCreateNSStringFromHSTRING(nullptr) length]);
  EXPECT_EQ(nil, [WRTHSTRINGBridge bridge:nullptr]);
  EXPECT_EQ(nil, [WRTHSTRINGBridge bridgeTransfer:nullptr]);
  EXPECT_EQ(nil, [WRTHSTRINGBridge createWithString:nil]);
  NSMutableString *string = [NSMutableString string];
  WRTHSTRINGBridge *bridge = [WRTHSTRINGBridge createWithString:string];
  EXPECT_EQ(nullptr, [bridge hstring]);
  [string appendString:@"late"];
  EXPECT_NE(nullptr, [bridge hstring]) << "tried again";
  EXPECT_TRUE(logRecords().empty());
});

const Cell fromHandle("string.bridge.from_handle.normal", [] {
  HSTRING handle = WRTCreateHSTRINGFromNSString(@"borrowed");
  WRTHSTRINGBridge *bridge = [StringBridgeOfOnesOwn bridge:handle];
  EXPECT_EQ([WRTHSTRINGBridge class], [bridge class]) << "whoever is asked";
  WRTHSTRINGRelease(handle);
  EXPECT_TRUE([[bridge string] isEqual:@"borrowed"]) << "lives on its own duplicate";
  EXPECT_EQ([bridge string], [bridge string]);

  HSTRING handedOver = WRTCreateHSTRINGFromNSString(@"handed over");
  EXPECT_TRUE([[[WRTHSTRINGBridge bridgeTransfer:handedOver] string] isEqual:@"handed over"]);
  // The ledger shows that the handle was released with the bridge.
});

const Cell fromString("string.bridge.from_string.normal", [] {
  NSMutableString *string = [NSMutableString stringWithString:@"shared"];
  WRTHSTRINGBridge *bridge = [StringBridgeOfOnesOwn createWithString:string];
  EXPECT_EQ([WRTHSTRINGBridge class], [bridge class]);
  EXPECT_EQ(string, [bridge string]) << "not copied";
  void *handle = [bridge hstring];
  EXPECT_NE(nullptr, handle);
  EXPECT_EQ(handle, [bridge hstring]);
  EXPECT_TRUE([WRTCreateNSStringFromHSTRING(static_cast<HSTRING>(handle)) isEqual:@"shared"]);

  std::string variables;
  unsigned count = 0;
  Ivar *list = class_copyIvarList([WRTHSTRINGBridge class], &count);
  for (unsigned i = 0; i < count; ++i)
    variables += std::string(ivar_getName(list[i])) + " ";
  free(list);
  EXPECT_EQ("_hstring _originalHSTRINGToRelease _nsstring ", variables);
});

const Cell duplicateFailing("string.bridge.from_handle.failing_duplicate", [] {
  HSTRING handle = WRTCreateHSTRINGFromNSString(@"text");
  failNextDuplicate(static_cast<HRESULT>(0x8007000E));
  EXPECT_EQ(nil, [WRTHSTRINGBridge bridgeTransfer:handle]);
  ASSERT_EQ(1u, logRecords().size());
  EXPECT_EQ(3, logRecords()[0].level);
  EXPECT_EQ("+[WRTHSTRINGBridge _bridge:transfer:]", logRecords()[0].function);
  EXPECT_EQ(0u, logRecords()[0].text.find("Failed to duplicate HSTRING 0x"));
  WRTHSTRINGRelease(handle); // nobody else does
});

} // namespace
