#ifndef WRT_HSTRING_BRIDGE_H
#define WRT_HSTRING_BRIDGE_H

#import <Foundation/Foundation.h>
#include <WRTObjcBridge/WRTTypes.h>

#if defined(__clang__)
#pragma clang assume_nonnull begin
#endif

/// A string with Objective-C lifetime in both forms, the second made when it is first asked for and
/// then kept. A form that is missing must not be asked for on two threads at once.
WRT_BRIDGE_API
@interface WRTHSTRINGBridge : NSObject {
@private
  void *_hstring;
  void *_originalHSTRINGToRelease;
  NSString *_nsstring;
}

/// The string, autoreleased.
@property (nonatomic, readonly, nullable) NSString *string;
/// The handle, owned by this object; null for an empty string.
@property (nonatomic, readonly, nullable) void *hstring;

/// An autoreleased object with a duplicate of `string` (borrowed), which it takes over besides when
/// `transfer`. Nil for null, the empty string; logged and nil when the duplicate fails, and then
/// nothing is taken over.
+ (nullable instancetype)_bridge:(nullable void *)string transfer:(BOOL)transfer;
/// As `_bridge:transfer:` with YES.
+ (nullable instancetype)bridgeTransfer:(nullable void *)string;
/// As `_bridge:transfer:` with NO.
+ (nullable instancetype)bridge:(nullable void *)string;
/// An autoreleased object that shares `string`, which is not copied; nil for nil.
+ (nullable instancetype)createWithString:(nullable NSString *)string;

@end

#if defined(__clang__)
#pragma clang assume_nonnull end
#endif

#endif
