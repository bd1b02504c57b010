#include "platform/linux/components/storage/StorageLog.h"

#include <CrossPortability.h>

namespace wrt::components {

void logLeftOut(const Path &folder, HRESULT status) {
  static XPLogContext context;
  constexpr int kFailure = 3;
  if (XPLogDetermineLogLevel(kFailure, &context, "", "listTree", __LINE__) == 0)
    return;
  // Threads of the pool have none.
  @autoreleasepool {
    XPLogS(kFailure, &context, "listTree", "", __LINE__, @"Left out %s: 0x%lx", folder.c_str(),
           static_cast<unsigned long>(static_cast<uint32_t>(status)));
  }
}

} // namespace wrt::components
