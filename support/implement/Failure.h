#ifndef WRT_SUPPORT_FAILURE_H
#define WRT_SUPPORT_FAILURE_H

#import <WRTObjcBridge/WRTConversions.h>
#include <WRTStatus.h>

namespace wrt::support {

/// Stores the error of `status`, nil for success, into a variable that may be absent.
inline void store(HRESULT status, NSError **error) {
  if (error)
    *error = WRTCreateNSErrorFromHRESULT(status);
}

} // namespace wrt::support

#endif
