#ifndef WRT_COMPONENTS_THREAD_POOL_H
#define WRT_COMPONENTS_THREAD_POOL_H

#include <WRTObjcBridge/WRTTypes.h>
#include <functional>

namespace wrt::implement {

/// Runs `work` on a thread of the process's pool, first come first served. The pool grows while all
/// of its threads are busy, up to 32; work that waits for other work must not be more than that.
/// Where not even one thread can be had, `work` is done before this returns. It must not throw. Any
/// thread.
WRT_DLLEXPORT void runOnPool(std::function<void()> work);

/// Waits until the pool has nothing to run and everything that it ran is destroyed. Not from the
/// pool's own threads.
WRT_DLLEXPORT void waitForPool();

} // namespace wrt::implement

#endif
