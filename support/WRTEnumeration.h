/// Collections of the Windows Runtime in the forms of Foundation:
///
///     for (WRTStorageFileBridge *file in WRTEach(files, &error)) ...
///     NSArray<NSString *> *names = WRTArray(vector, &error);
///
/// Vectors, views, iterables and maps, also those whose bridges are proxies, and the runtime
/// classes that are one. Strings are NSString, objects bridges of the element's type, numbers and
/// enumerations NSNumber, GUIDs NSUUID, null NSNull, entries of maps WRTKeyValuePair. Collections
/// of structures are not offered (`E_NOTIMPL`).
#ifndef WRT_ENUMERATION_H
#define WRT_ENUMERATION_H

#import <WRTObjcBridge/IIterable.h>
#import <WRTObjcBridge/IMap.h>
#import <WRTObjcBridge/IMapView.h>
#import <WRTObjcBridge/IVector.h>
#import <WRTObjcBridge/IVectorView.h>
#import <WRTSupport/WRTSupportBase.h>

#pragma clang assume_nonnull begin
WRT_SUPPORT_BEGIN

/// An entry of a map. Immutable.
WRT_SUPPORT_API
@interface WRTKeyValuePair : NSObject {
@private
  id _key;
  id _value;
}
@property (nonatomic, readonly) id key;
@property (nonatomic, readonly) id value;
+ (instancetype)pairWithKey:(id)key value:(id)value;
@end

WRT_EXTERN_C_BEGIN

/// `WRTEach` with a block that is told the error, nil for none, when it is called and whenever
/// reading fails.
WRT_SUPPORT_API
id<NSFastEnumeration> _Nullable WRTEachReporting(id<WRTIInspectableBridge> _Nullable collection,
                                                 void (^report)(NSError *_Nullable failure));

/// All elements, autoreleased; nil and an error when reading fails, `E_CHANGED_STATE` if because
/// the collection changed. Any thread that may use the collection.
WRT_SUPPORT_API NSArray *_Nullable WRTArray(id<WRTIInspectableBridge> _Nullable collection,
                                            NSError *_Nullable *_Nullable error);
/// The entries of a map or of an iterable of pairs, autoreleased. Keys that are boxed values are
/// unboxed, values are not. Nil and an error as above, and for keys that are other objects
/// (`E_INVALIDARG`).
WRT_SUPPORT_API NSDictionary *_Nullable WRTDictionary(id<WRTIInspectableBridge> _Nullable map,
                                                      NSError *_Nullable *_Nullable error);

WRT_EXTERN_C_END

/// The collection's elements for one `for` loop, on one thread. They are read in blocks and
/// autoreleased. When they cannot be read, the loop ends and the error is in `error`, a variable
/// that outlives the loop (NULL allowed); nil and `E_POINTER` for nil, `E_NOINTERFACE` for what is
/// no collection. A loop raises `NSGenericException`, as Foundation's collections do, when the
/// collection has changed its size meanwhile or its iterator says that it has changed.
static inline __attribute__((unused))
id<NSFastEnumeration> _Nullable WRTEach(id<WRTIInspectableBridge> _Nullable collection,
                                        NSError *_Nullable __strong *_Nullable error) {
  return WRTEachReporting(collection, ^(NSError *_Nullable failure) {
    if (error)
      *error = failure;
  });
}

WRT_SUPPORT_END
#pragma clang assume_nonnull end

#endif
