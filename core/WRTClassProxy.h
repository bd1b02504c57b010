#ifndef WRT_CLASS_PROXY_H
#define WRT_CLASS_PROXY_H

#import <WRTObjcBridge/WRTInspectableBridge.h>

/// The base of the bridges of runtime classes that stand as proxies: their objects can be passed on
/// and cast, but not be made here.
WRT_BRIDGE_API
@interface WRTClassProxy : WRTInspectableBridge

/// Logs that the class is a proxy and ends the process.
+ (nullable void *)activateInstance;
- (nullable instancetype)init
    __attribute__((unavailable("a proxy's objects come from members of other classes")));
+ (nullable instancetype)new
    __attribute__((unavailable("a proxy's objects come from members of other classes")));

@end

#endif
