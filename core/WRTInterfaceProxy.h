#ifndef WRT_INTERFACE_PROXY_H
#define WRT_INTERFACE_PROXY_H

#import <WRTObjcBridge/WRTInspectableBridge.h>

/// The base of every interface bridge.
WRT_BRIDGE_API
@interface WRTInterfaceProxy : WRTInspectableBridge
@end

#endif
