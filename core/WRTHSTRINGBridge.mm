#import <WRTObjcBridge/WRTHSTRINGBridge.h>

#include <WRTBridge.h>
#include <WRTBridgeUtil.h>

#include "core/Log.h"

namespace log = wrt::log;

// The constructors name the class itself: a subclass that calls them gets a plain object too.
@implementation WRTHSTRINGBridge

+ (instancetype)_bridge:(void *)string transfer:(BOOL)transfer {
  if (!string)
    return nil;
  WRTHSTRINGBridge *bridge = [[WRTHSTRINGBridge alloc] init];
  HSTRING copy = nullptr;
  const HRESULT status = WRTHSTRINGDuplicate(static_cast<HSTRING>(string), &copy);
  if (status < 0) {
    log::write(log::kFailure, log::coreContext, __func__, __LINE__,
               @"Failed to duplicate HSTRING %p", string);
    [bridge release];
    return nil;
  }
  bridge->_hstring = copy;
  if (transfer)
    bridge->_originalHSTRINGToRelease = string;
  return [bridge autorelease];
}

+ (instancetype)bridgeTransfer:(void *)string {
  return [self _bridge:string transfer:YES];
}

+ (instancetype)bridge:(void *)string {
  return [self _bridge:string transfer:NO];
}

+ (instancetype)createWithString:(NSString *)string {
  if (!string)
    return nil;
  WRTHSTRINGBridge *bridge = [[WRTHSTRINGBridge alloc] init];
  bridge->_nsstring.replace([string retain]);
  return [bridge autorelease];
}

- (void *)hstring {
  if (!_hstring)
    _hstring = WRTHSTRINGFromCFString(_nsstring.get());
  return _hstring;
}

- (NSString *)string {
  if (!_nsstring.get())
    _nsstring.replace(WRTHSTRINGToCFString(static_cast<HSTRING>(_hstring)));
  return [[_nsstring.get() retain] autorelease];
}

- (void)dealloc {
  WRTHSTRINGRelease(static_cast<HSTRING>(_hstring));
  if (_originalHSTRINGToRelease)
    WRTHSTRINGRelease(static_cast<HSTRING>(_originalHSTRINGToRelease));
  [super dealloc];
}

@end
