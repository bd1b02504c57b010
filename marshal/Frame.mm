#include "marshal/Frame.h"

#include <WRTObjcBridge/WRTConversions.h>

namespace wrt {

void Frame::fail(HRESULT status) { error_ = WRTCreateNSErrorFromHRESULT(status); }

} // namespace wrt
