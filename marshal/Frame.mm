#include "marshal/Frame.h"

#include <WRTBridge.h>
#include <WRTObjcBridge/WRTConversions.h>

namespace wrt {

bool Frame::accept(HRESULT status) {
  error_ = WRTCreateNSErrorFromHRESULT(status);
  return status >= 0;
}

void Frame::close(NSError **error) {
  cleanups_.run();
  WRTIUnknownRelease(interface_);
  if (error)
    *error = error_;
}

} // namespace wrt
