#include "core/Log.h"

namespace wrt::log {

XPLogContext coreContext;

} // namespace wrt::log
