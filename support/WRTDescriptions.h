/// How objects look in logs and debuggers:
///
///     NSLog(@"%@", file);  // <WRTStorageFileBridge 0x5581: Windows.Storage.StorageFile 0x55f0>
///     NSLog(@"%@", pair);  // name = <WRTIInspectableBridge ...>
#ifndef WRT_DESCRIPTIONS_H
#define WRT_DESCRIPTIONS_H

#import <WRTObjcBridge/WRTUnknownBridge.h>
#import <WRTSupport/WRTEnumeration.h>
#import <WRTSupport/WRTSubscription.h>

/// Linking WRTSupport is enough for the descriptions to be there.
@interface WRTUnknownBridge (WRTDescriptions)
/// The bridge's class and address, the object's runtime class, if it tells one, and its identity:
/// the same for all bridges of one object. Asks the object; any thread that may use it.
- (NSString *_Nonnull)description;
@end

@interface WRTKeyValuePair (WRTDescriptions)
/// "key = value".
- (NSString *_Nonnull)description;
@end

@interface WRTSubscription (WRTDescriptions)
/// Whether it is active.
- (NSString *_Nonnull)description;
@end

#endif
