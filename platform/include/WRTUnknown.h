/// The function tables of the two root interfaces of the Windows Runtime in C (Windows 10 SDK
/// 10.0.16299.0, unknwnbase.h and inspectable.h).
#ifndef WRT_UNKNOWN_H
#define WRT_UNKNOWN_H

#include <WRTObjcBridge/WRTTypes.h>

WRT_EXTERN_C_BEGIN

/// Slots 0 to 2 of every interface.
typedef struct WRTIUnknownVtbl {
  HRESULT(WRT_ABI *QueryInterface)(WRTIUnknown *self, const GUID *iid, void **result);
  uint32_t(WRT_ABI *AddRef)(WRTIUnknown *self);
  uint32_t(WRT_ABI *Release)(WRTIUnknown *self);
} WRTIUnknownVtbl;

/// Slots 0 to 5 of every WinRT interface that is not a delegate.
typedef struct WRTIInspectableVtbl {
  HRESULT(WRT_ABI *QueryInterface)(WRTIInspectable *self, const GUID *iid, void **result);
  uint32_t(WRT_ABI *AddRef)(WRTIInspectable *self);
  uint32_t(WRT_ABI *Release)(WRTIInspectable *self);
  HRESULT(WRT_ABI *GetIids)(WRTIInspectable *self, uint32_t *count, GUID **iids);
  HRESULT(WRT_ABI *GetRuntimeClassName)(WRTIInspectable *self, HSTRING *name);
  HRESULT(WRT_ABI *GetTrustLevel)(WRTIInspectable *self, int32_t *level);
} WRTIInspectableVtbl;

WRT_EXTERN_C_END

#endif
