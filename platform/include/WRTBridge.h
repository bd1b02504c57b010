/// The platform interface: what `WRTBridge_zorvex` supplies, the C bridge to the Windows Runtime.
/// Every function may be called on any thread. The class-name constants and the delegate factories,
/// one per class and per delegate, are declared by the generated headers; what gives things up is
/// declared for applications too, by the header of ownership.
#ifndef WRT_BRIDGE_H
#define WRT_BRIDGE_H

// Other compilers do not say which pointers may be null.
#if !defined(__clang__) && !defined(_Nullable)
#define _Nullable
#endif
#include <WRTObjcBridge/WRTOwnership.h>
#include <stddef.h>
#if !defined(__cplusplus)
#include <uchar.h>
#endif

WRT_EXTERN_C_BEGIN

/// Room for a string reference, as large as the platform's HSTRING_HEADER (Windows 10 SDK
/// 10.0.16299.0, hstring.h: 20 bytes on 32-bit, 24 on 64-bit targets). Contents are the platform's.
typedef struct WRTHSTRINGHeader {
  union {
    void *reserved1;
#if __SIZEOF_POINTER__ == 8
    char reserved2[24];
#else
    char reserved2[20];
#endif
  } reserved;
} WRTHSTRINGHeader;

/// A new default instance of the named class (null-terminated UTF-16, borrowed): an interface
/// pointer with a reference for the caller (+1), or null.
void *WRTActivateInstance(const char16_t *className);
/// The class's activation factory as the interface `iid`: `*factory` is +1 on success, null on
/// failure. `className` is borrowed.
HRESULT WRTGetActivationFactory(HSTRING className, const GUID *iid, void **factory);

/// Makes a string over borrowed characters without copying them; `text[length]` must be 0. The
/// string lives as long as `*header` and `text` do and needs no release. `length` is in UTF-16
/// units.
HRESULT WRTHSTRINGCreateReference(const char16_t *text, uint32_t length, WRTHSTRINGHeader *header,
                                  HSTRING *string);
/// The length of null-terminated text in UTF-16 units.
uint32_t WRTHSTRINGLength(const char16_t *text);
/// Another handle (+1) to the same text; null gives null. A string reference is copied.
HRESULT WRTHSTRINGDuplicate(HSTRING string, HSTRING *copy);

/// `IUnknown`'s query of any interface pointer, which must not be null (borrowed). On success
/// `*result` is +1.
HRESULT WRTIUnknownQueryInterface(void *object, const GUID *iid, void **result);
/// As `WRTIUnknownRelease`; null is allowed and does nothing.
void WRTIUnknownSafeRelease(void *object);
/// The identifier of `IUnknown`, 00000000-0000-0000-C000-000000000046.
GUID WRTIUnknownGetUUID(void);

/// The identifier of `IBufferByteAccess`, 905A0FEF-BC53-11DF-8C49-001E4FC686DA (Windows 10 SDK
/// 10.0.16299.0, robuffer.h).
GUID WRTIBufferByteAccessGetUUID(void);
/// The buffer's bytes, borrowed from the buffer behind `byteAccess`.
HRESULT WRTIBufferByteAccessBuffer(void *byteAccess, uint8_t **bytes);
/// A new `IBuffer` (+1) over `length` borrowed bytes, which must outlive it.
void *WRTCreateBufferWrappingBytes(void *bytes, uint32_t length);

/// Task memory of `size` bytes, or null; a size of 0 gives a block too.
void *WRTTaskMemAlloc(size_t size);

WRT_EXTERN_C_END

#endif
