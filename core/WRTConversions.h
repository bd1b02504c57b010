#ifndef WRT_CONVERSIONS_H
#define WRT_CONVERSIONS_H

#import <Foundation/Foundation.h>
#import <WRTObjcBridge/WRTBufferConversions.h>
#include <WRTObjcBridge/WRTTypes.h>

WRT_EXTERN_C_BEGIN

/// The string behind a handle (borrowed), autoreleased. Null, the empty string, gives an empty one.
WRT_BRIDGE_API NSString *_Nullable WRTCreateNSStringFromHSTRING(HSTRING _Nullable string);

/// A new handle with the string's characters; the caller releases it with `WRTHSTRINGRelease`. Null
/// for nil and for an empty string.
WRT_BRIDGE_API HSTRING _Nullable WRTCreateHSTRINGFromNSString(NSString *_Nullable string);

/// The error of domain "WRT" whose code is the status, autoreleased; nil for a status that is no
/// failure.
WRT_BRIDGE_API NSError *_Nullable WRTCreateNSErrorFromHRESULT(HRESULT status);

WRT_EXTERN_C_END

#endif
