#import <WRTObjcBridge/WRTHSTRINGBridge.h>

#include <ClassReceiver.h>
#include <WRTBridge.h>
#include <WRTBridgeUtil.h>

#include "core/Log.h"

namespace log = wrt::log;

// Compiled for the product with automatic reference counting, which gives the class `.cxx_destruct`
// and its variable the type of an object; the GNU runtime cannot have that, and is counted for
// here.
#if __has_feature(objc_arc)
#define WRT_RETAINED(object) (object)
#define WRT_AUTORELEASED(object) (object)
#else
#define WRT_RETAINED(object) [object retain]
#define WRT_AUTORELEASED(object) [object autorelease]
#endif

// The constructors name the class itself: a subclass that calls them gets a plain object too.
@implementation WRTHSTRINGBridge

+ (instancetype)_bridge:(void *)string transfer:(BOOL)transfer {
  if (!string)
    return nil;
  WRTHSTRINGBridge *bridge = WRT_AUTORELEASED([[WRT_CLASS(WRTHSTRINGBridge) alloc] init]);
  HSTRING copy = nullptr;
  const HRESULT status = WRTHSTRINGDuplicate(static_cast<HSTRING>(string), &copy);
  if (status < 0) {
    log::write(log::kFailure, log::coreContext, __func__, __LINE__,
               @"Failed to duplicate HSTRING %p", string);
    return nil;
  }
  bridge->_hstring = copy;
  if (transfer)
    bridge->_originalHSTRINGToRelease = string;
  return bridge;
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
  WRTHSTRINGBridge *bridge = WRT_AUTORELEASED([[WRT_CLASS(WRTHSTRINGBridge) alloc] init]);
  bridge->_nsstring = WRT_RETAINED(string);
  return bridge;
}

- (void *)hstring {
  if (!_hstring)
    _hstring = WRTHSTRINGFromCFString(_nsstring);
  return _hstring;
}

- (NSString *)string {
  if (!_nsstring)
    _nsstring = WRTHSTRINGToCFString(static_cast<HSTRING>(_hstring));
  return WRT_AUTORELEASED(WRT_RETAINED(_nsstring));
}

- (void)dealloc {
  WRTHSTRINGRelease(static_cast<HSTRING>(_hstring));
  if (_originalHSTRINGToRelease)
    WRTHSTRINGRelease(static_cast<HSTRING>(_originalHSTRINGToRelease));
#if !__has_feature(objc_arc)
  [_nsstring release];
  [super dealloc];
#endif
}

@end
