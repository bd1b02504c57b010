#include <WRTAbi.h>
#include <WRTBridge.h>

using wrt::abi::IUnknown;

WRT_DLLEXPORT uint32_t WRTIUnknownAddRef(void *object) {
  return static_cast<IUnknown *>(object)->AddRef();
}

WRT_DLLEXPORT uint32_t WRTIUnknownRelease(void *object) {
  return static_cast<IUnknown *>(object)->Release();
}

WRT_DLLEXPORT HRESULT WRTIUnknownQueryInterface(void *object, const GUID *iid, void **result) {
  return static_cast<IUnknown *>(object)->QueryInterface(iid, result);
}

WRT_DLLEXPORT void WRTIUnknownSafeRelease(void *object) {
  if (object != nullptr)
    static_cast<IUnknown *>(object)->Release();
}

WRT_DLLEXPORT GUID WRTIUnknownGetUUID() { return IUnknown::kIid; }
