#ifndef WRT_STORAGE_LOG_H
#define WRT_STORAGE_LOG_H

#include "platform/linux/components/storage/FileSystem.h"

namespace wrt::components {

/// Logs at level 3 that a list goes without the folder, which failed with `status`.
void logLeftOut(const Path &folder, HRESULT status);

} // namespace wrt::components

#endif
