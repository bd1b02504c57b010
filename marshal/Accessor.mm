#include "marshal/Accessor.h"

#include <WRTBridge.h>
#include <WRTObjcBridge/WRTConversions.h>
#include <WRTObjcBridge/WRTUnknownBridge.h>

namespace wrt {

void *queryInterface(id bridge, const GUID &iid, NSError **error) {
  return [static_cast<WRTUnknownBridge *>(bridge) queryInterfaceWithGUID:iid error:error];
}

void *activationFactory(const char16_t *className, const GUID &iid, NSError **error) {
  void *factory = nullptr;
  // The string reference lives in this frame and needs no release.
  WRTHSTRINGHeader header;
  HSTRING name = nullptr;
  HRESULT status =
      WRTHSTRINGCreateReference(className, WRTHSTRINGLength(className), &header, &name);
  if (status >= 0)
    status = WRTGetActivationFactory(name, &iid, &factory);
  if (error)
    *error = WRTCreateNSErrorFromHRESULT(status);
  return status < 0 ? nullptr : factory;
}

} // namespace wrt
