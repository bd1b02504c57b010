/// What gives up the things that a bridge leaves to its caller. The functions are the C bridge
/// library's, `WRTBridge_zorvex`, which an application is linked with besides; any thread may call
/// them. C, C++, Objective-C and Objective-C++.
///
/// | a member gives | what becomes of it |
/// |---|---|
/// | a C array through a pointer to a pointer, as `getUInt8ArrayWithValueSize:value:error:` and
/// `getFormatUserDataWithValueSize:value:error:` do | the caller's: `WRTTaskMemFree` | | an
/// interface pointer: `_WRTIUriWithError:`, `queryInterfaceWithGUID:error:`, `activateInstance` |
/// one reference (+1) is the caller's: `WRTIUnknownRelease` | | a structure with a handle in it
/// (`WRTTypeName`) | the handle is the caller's: `WRTHSTRINGRelease` | | a handle from
/// `WRTCreateHSTRINGFromNSString` | the caller's: `WRTHSTRINGRelease` | | `inner`, the handle of a
/// `WRTHSTRINGBridge`, a pointer in a block's arguments | borrowed: nothing |
#ifndef WRT_OWNERSHIP_H
#define WRT_OWNERSHIP_H

#include <WRTObjcBridge/WRTTypes.h>

#pragma clang assume_nonnull begin

WRT_EXTERN_C_BEGIN

/// Frees an array that WinRT allocated; null is allowed. Handles and interface pointers in it are
/// to be given up before.
void WRTTaskMemFree(void *_Nullable block);
/// Adds a reference to any interface pointer; gives the new count, for diagnosis only.
uint32_t WRTIUnknownAddRef(void *object);
/// Gives up a reference to any interface pointer; gives the new count, for diagnosis only.
uint32_t WRTIUnknownRelease(void *object);
/// Gives up a handle; null, the empty string, is allowed. Never fails for a handle.
HRESULT WRTHSTRINGRelease(HSTRING _Nullable string);

WRT_EXTERN_C_END

#pragma clang assume_nonnull end

#endif
