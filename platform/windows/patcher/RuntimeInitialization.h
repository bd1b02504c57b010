#ifndef WRT_PATCHER_RUNTIME_INITIALIZATION_H
#define WRT_PATCHER_RUNTIME_INITIALIZATION_H

#include <cstdint>

namespace wrt::startup {

/// Initializes the Windows Runtime on the calling thread, multithreaded, if the library asks for
/// that. Returns the status when it is negative, else 0. Not part of the start-up sequence: no
/// entry of the initializer tables may call into COM while the loader's lock is held.
std::int32_t initializeWindowsRuntime();

} // namespace wrt::startup

#endif
