#include "platform/linux/wine/WindowsFunctions.h"

using wrt::wine::windows;

WRT_DLLEXPORT void *WRTActivateInstance(const char16_t *className) {
  WRTHSTRINGHeader header;
  HSTRING name;
  void *instance = nullptr;
  if (WRTHSTRINGCreateReference(className, WRTHSTRINGLength(className), &header, &name) < 0 ||
      windows().RoActivateInstance(name, &instance) < 0)
    return nullptr;
  return instance;
}

WRT_DLLEXPORT HRESULT WRTGetActivationFactory(HSTRING className, const GUID *iid, void **factory) {
  *factory = nullptr;
  return windows().RoGetActivationFactory(className, iid, factory);
}
