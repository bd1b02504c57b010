/// Foundation's collections for members that take WinRT's:
///
///     [picker setNamesWithValue:WRTVectorOf(names, WRTIVector__1_WRTHSTRING_Bridge, &error)
///     error:&error];
///     __auto_type map = WRTMapOf(@{@"a" : @1}, WRTIMap__2_WRTHSTRING_WRTIInspectable_P_Bridge,
///     &error);
///
/// The elements are copied when the collection is made; what WinRT changes in it later, the array
/// does not show. The objects may be used on any thread. They answer as WinRT documents: `E_BOUNDS`
/// for an index or key that is not there, `E_CHANGED_STATE` from an iterator whose collection was
/// changed.
#ifndef WRT_COLLECTIONS_H
#define WRT_COLLECTIONS_H

#import <WRTSupport/WRTEnumeration.h>

WRT_EXTERN_C_BEGIN

WRT_SUPPORT_API id _Nullable WRTCollectionOf(id _Nullable collection, Protocol *_Nonnull protocol,
                                             NSError *_Nullable *_Nullable error);

WRT_EXTERN_C_END

/// An array as the vector, view or iterable that `Bridge` names, an autoreleased object of that
/// protocol. Elements are NSString where WinRT has strings, elsewhere bridges that have the
/// element's interface and NSNull for null; where it has any object, whatever `WRTBox` boxes; where
/// it has collections, arrays and dictionaries. Nil and an error for nil (`E_POINTER`), an element
/// of another kind or another collection (`E_INVALIDARG`), an object without the interface
/// (`E_NOINTERFACE`), and for collections of numbers and structures (`E_NOTIMPL`).
#define WRTVectorOf(array, Bridge, error)                                                          \
  ((id<Bridge>)WRTCollectionOf((array), @protocol(Bridge), (error)))

/// A dictionary with strings as keys as the map, map view or iterable of pairs that `Bridge` names;
/// all else as for `WRTVectorOf`.
#define WRTMapOf(dictionary, Bridge, error) WRTVectorOf(dictionary, Bridge, error)

#endif
