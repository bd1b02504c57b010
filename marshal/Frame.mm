#include "marshal/Frame.h"

#include <WRTBridge.h>
#include <WRTObjcBridge/WRTConversions.h>
#include <WRTStatus.h>

namespace wrt {

Frame::Frame(id receiver, Accessor accessor) : interface_(accessor(receiver, &error_)) {
  // What comes along with an error is not ours.
  if (error_)
    interface_ = nullptr;
}

Frame::~Frame() noexcept(false) {
  if (!interface_)
    return;
  cleanups_.run();
  WRTIUnknownRelease(interface_);
  if (place_)
    *place_ = error_;
}

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
