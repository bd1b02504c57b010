/// The platform interface: string conversion, supplied by `WRTBridgeUtil_zorvex`.
#ifndef WRT_BRIDGE_UTIL_H
#define WRT_BRIDGE_UTIL_H

#import <Foundation/NSString.h>
#include <WRTObjcBridge/WRTTypes.h>

WRT_EXTERN_C_BEGIN

/// A new string (+1) with the handle's characters, embedded nulls and lone surrogates included. The
/// handle is borrowed; null gives an empty string.
NSString *WRTHSTRINGToCFString(HSTRING string) __attribute__((ns_returns_retained));
/// A new handle owned by the caller, to be given up with `WRTHSTRINGRelease`; null for nil, for an
/// empty string and when memory runs out.
HSTRING WRTHSTRINGFromCFString(NSString *string);

WRT_EXTERN_C_END

#endif
