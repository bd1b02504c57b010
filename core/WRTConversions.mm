#import <WRTObjcBridge/WRTConversions.h>

#include <ClassReceiver.h>
#include <WRTBridgeUtil.h>

NSString *WRTCreateNSStringFromHSTRING(HSTRING string) {
  return [WRTHSTRINGToCFString(string) autorelease];
}

HSTRING WRTCreateHSTRINGFromNSString(NSString *string) { return WRTHSTRINGFromCFString(string); }

NSError *WRTCreateNSErrorFromHRESULT(HRESULT status) {
  if (status >= 0)
    return nil;
  return [WRT_CLASS(NSError) errorWithDomain:@"WRT" code:status userInfo:nil];
}
