#include "marshal/Frame.h"

#include <WRTBridge.h>
#include <WRTObjcBridge/WRTConversions.h>

namespace wrt {

bool Frame::accept(HRESULT status) {
  if (status >= 0)
    return true;
  error_ = WRTCreateNSErrorFromHRESULT(status);
  return false;
}

void Frame::close(NSError **error) {
  cleanups_.run();
  WRTIUnknownRelease(interface_);
  if (error)
    *error = error_;
}

} // namespace wrt
