/// What gives up the things that a bridge leaves to its caller. The functions are the C bridge
/// library's, `WRTBridge_zorvex`, which an application is linked with besides; any thread may call
/// them. C, C++, Objective-C and Objective-C++.
///
/// What a member gives, and what becomes of it:
///
/// - A C array through a pointer to a pointer, as `getUInt8ArrayWithValueSize:value:error:` and
///   `getFormatUserDataWithValueSize:value:error:` give, is the caller's: `WRTTaskMemFree`.
/// - An interface pointer, from `_WRTIUriWithError:`, `queryInterfaceWithGUID:error:` or
///   `activateInstance`, carries one reference (+1) of the caller's: `WRTIUnknownRelease`.
/// - The handle in a structure (`WRTTypeName`) is the caller's: `WRTHSTRINGRelease`.
/// - A handle from `WRTCreateHSTRINGFromNSString` is the caller's: `WRTHSTRINGRelease`.
/// - `inner`, the handle of a `WRTHSTRINGBridge` and a pointer in a block's arguments are borrowed:
///   nothing.
#ifndef WRT_OWNERSHIP_H
#define WRT_OWNERSHIP_H

#include <WRTObjcBridge/WRTTypes.h>

#if defined(__clang__)
#pragma clang assume_nonnull begin
#endif

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

#if defined(__clang__)
#pragma clang assume_nonnull end
#endif

#endif
