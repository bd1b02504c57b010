#ifndef WRT_UNKNOWN_BRIDGE_H
#define WRT_UNKNOWN_BRIDGE_H

#import <Foundation/Foundation.h>
#include <WRTObjcBridge/WRTTypes.h>

#if defined(__clang__)
#pragma clang assume_nonnull begin
#endif

/// What every bridge answers.
@protocol WRTIUnknownBridge
@required
/// The wrapped object's interface `guid` with a reference for the caller (+1). When the object does
/// not implement it: null, and the failure in `error`.
- (nullable void *)queryInterfaceWithGUID:(GUID)guid error:(NSError *_Nullable *_Nullable)error;
/// The wrapped object's identity with a reference for the caller (+1).
- (nullable WRTIUnknown *)_WRTIUnknownWithError:(NSError *_Nullable *_Nullable)error;
/// The wrapped interface pointer, borrowed from the bridge.
@property (nonatomic, readonly, nullable) void *inner;
/// As the instance method, for any interface pointer (borrowed, not null).
+ (nullable void *)queryInterface:(void *)object
                         withGUID:(GUID)guid
                            error:(NSError *_Nullable *_Nullable)error;
@end

/// The root of all bridges: an Objective-C object that holds exactly one reference to a WinRT
/// interface pointer and drops it when it is deallocated. Bridges may be used on every thread that
/// the wrapped object allows.
WRT_BRIDGE_API
@interface WRTUnknownBridge : NSObject <WRTIUnknownBridge> {
@private
  void *_inner_obj;
}
@property (nonatomic, readonly, nullable) void *inner;

/// A bridge of the receiving class, autoreleased, that takes over the caller's reference to
/// `object`. Null is logged and gives nil.
+ (nullable instancetype)bridgeTransfer:(nullable void *)object;
/// A bridge of the receiving class, autoreleased, with a reference of its own to `object`
/// (borrowed). Null is logged and gives nil.
+ (nullable instancetype)bridge:(nullable void *)object;
/// The same WinRT object as a bridge of the receiving class, autoreleased: `object` itself when it
/// is exactly of that class. Never fails for a bridge; whether the object implements the class's
/// interfaces shows when a member is called. Nil gives nil.
+ (nullable instancetype)cast:(nullable id)object;
/// A new default instance of the class's runtime class (+1), or null; null here.
+ (nullable void *)activateInstance;
/// Takes over one reference to `object`.
- (nullable instancetype)initWithInner:(nullable void *)object
    __attribute__((objc_designated_initializer));
/// A new default instance of the class's runtime class; logged and nil when there is none.
- (nullable instancetype)init;
/// Whether `other` is a bridge of exactly the same class for the same WinRT object. `hash` stays
/// that of the bridge's own identity.
- (BOOL)isEqual:(nullable id)other;
@end

#if defined(__clang__)
#pragma clang assume_nonnull end
#endif

#endif
