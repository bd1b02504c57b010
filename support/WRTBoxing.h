/// Foundation's values as boxed values and back:
///
///     [map insertWithKey:WRTBox(@"count") value:WRTBox(@17) replaced:&replaced error:&error];
///     NSNumber *count = WRTUnbox([map lookupWithKey:WRTBox(@"count") error:&error]);
///
/// | Foundation | boxed as | unboxed as |
/// |---|---|---|
/// | NSNumber | Boolean, or the number type of its `objCType` | NSNumber |
/// | NSString, NSDate, NSUUID | String, DateTime, Guid | the same |
/// | NSValue of a point, size or rectangle | Point, Size, Rect | NSValue |
/// | NSNull | Empty | NSNull |
/// | NSArray of one of these | an array of that type, of objects when they differ | NSArray |
/// | – | TimeSpan | NSNumber, seconds |
/// | – | Char16 | NSNumber |
///
/// A bridge is boxed as itself. The handles of unboxed strings stay behind, as in every member.
#ifndef WRT_BOXING_H
#define WRT_BOXING_H

#import <WRTObjcBridge/IReference.h>
#import <WRTSupport/WRTValues.h>

WRT_SUPPORT_BEGIN
WRT_EXTERN_C_BEGIN

WRT_SUPPORT_API id _Nullable WRTBoxObject(id _Nullable object, NSError *_Nullable *_Nullable error);
WRT_SUPPORT_API id _Nullable WRTUnboxObject(id _Nullable object,
                                            NSError *_Nullable *_Nullable error);
WRT_SUPPORT_API id _Nullable WRTReferenceTo(id _Nullable object, Protocol *_Nonnull protocol,
                                            NSError *_Nullable *_Nullable error);

WRT_EXTERN_C_END

/// The value as an object of the Windows Runtime, autoreleased; nil and an error for what cannot be
/// boxed (`E_INVALIDARG`) and for nil (`E_POINTER`). Any thread.
WRT_SUPPORT_OVERLOAD id<WRTIInspectableBridge> _Nullable WRTBox(id _Nullable object) {
  return WRTBoxObject(object, NULL);
}
WRT_SUPPORT_OVERLOAD
id<WRTIInspectableBridge> _Nullable WRTBox(id _Nullable object,
                                           NSError *_Nullable *_Nullable error) {
  return WRTBoxObject(object, error);
}

/// What is in the box, autoreleased; nil and an error for an object that is none (`E_NOINTERFACE`)
/// and for nil (`E_POINTER`). References (`IReference`) are such boxes too. Any thread.
WRT_SUPPORT_OVERLOAD id _Nullable WRTUnbox(id _Nullable object) {
  return WRTUnboxObject(object, NULL);
}
WRT_SUPPORT_OVERLOAD id _Nullable WRTUnbox(id _Nullable object,
                                           NSError *_Nullable *_Nullable error) {
  return WRTUnboxObject(object, error);
}

/// The value as a reference of the type that `reference` names, for a member that takes one:
/// `WRTReferenceOf(@90, WRTIReference__1_WRTTimeSpan_Bridge, &error)`. Time spans are given in
/// seconds, dates as NSDate, the other values as NSNumber. Autoreleased; nil and an error for a
/// value of another type or that does not fit (`E_INVALIDARG`), and for references to other
/// structures
/// (`E_NOTIMPL`). Any thread.
#define WRTReferenceOf(object, reference, error)                                                   \
  ((id<reference>)WRTReferenceTo((object), @protocol(reference), (error)))

WRT_SUPPORT_END

#endif
