#ifndef WRT_INSPECTABLE_BRIDGE_H
#define WRT_INSPECTABLE_BRIDGE_H

#import <WRTObjcBridge/WRTUnknownBridge.h>

#if defined(__clang__)
#pragma clang assume_nonnull begin
#endif

/// What every bridge of a WinRT object answers. The first three methods call slots 0, 1 and 2 of
/// the object's interface table, where it keeps `QueryInterface`, `AddRef` and `Release`; they are
/// of no use against a real object and stand for callers that rely on their being there.
@protocol WRTIInspectableBridge <WRTIUnknownBridge>
@required
/// What slot 0 stores; the slot's status is ignored. `count` is handed through and must have room
/// for 16 bytes, which a real object reads.
- (nullable GUID *)getIids:(nullable unsigned int *)count
                     error:(NSError *_Nullable *_Nullable)error;
/// The string that slot 1 stores, autoreleased; nil and an error when its status is negative.
- (nullable NSString *)getRuntimeClassNameWithError:(NSError *_Nullable *_Nullable)error;
/// The number that slot 2 stores.
- (int)getTrustLevelWithError:(NSError *_Nullable *_Nullable)error;
/// The wrapped object's `IInspectable` (AF86E2E0-B12D-4C6A-9C5A-D7AA65101E90) with a reference for
/// the caller (+1).
- (nullable WRTIInspectable *)_WRTIInspectableWithError:(NSError *_Nullable *_Nullable)error;
@end

/// The root of the bridges of WinRT objects.
WRT_BRIDGE_API
@interface WRTInspectableBridge : WRTUnknownBridge <WRTIInspectableBridge>
@end

#if defined(__clang__)
#pragma clang assume_nonnull end
#endif

#endif
