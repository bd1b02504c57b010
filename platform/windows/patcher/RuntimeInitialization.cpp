#include "RuntimeInitialization.h"

#include <roapi.h>

namespace wrt::startup {

namespace {

// A word in the image rather than a constant of the program: whether to initialize is a property of
// the linked library.
volatile bool initializesWindowsRuntime = true;

} // namespace

[[gnu::used]] std::int32_t initializeWindowsRuntime() {
  if (!initializesWindowsRuntime)
    return 0;
  const HRESULT status = RoInitialize(RO_INIT_MULTITHREADED);
  return status < 0 ? status : 0;
}

} // namespace wrt::startup
