#include "marshal/Frame.h"

#include <WRTObjcBridge/WRTConversions.h>
#include <WRTStatus.h>

namespace wrt {

bool Frame::refuse(HRESULT status) {
  error_ = WRTCreateNSErrorFromHRESULT(status);
  return false;
}

bool Frame::ask(id object, Accessor accessor, void **interface) {
  NSError *error = nil;
  *interface = accessor(object, &error);
  if (!error)
    return *interface || refuse(status::kNoInterface);
  error_ = error;
  return false;
}

} // namespace wrt
