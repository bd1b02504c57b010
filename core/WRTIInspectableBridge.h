#ifndef WRT_I_INSPECTABLE_BRIDGE_H
#define WRT_I_INSPECTABLE_BRIDGE_H

#import <WRTObjcBridge/WRTInspectableBridge.h>

/// The bridge of values whose WinRT type is the plain object type, `IInspectable`.
WRT_BRIDGE_API
@interface WRTIInspectableBridge : WRTInspectableBridge
@end

#endif
