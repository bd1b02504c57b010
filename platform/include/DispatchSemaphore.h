/// The platform interface: counting semaphores.
#ifndef DISPATCH_SEMAPHORE_H
#define DISPATCH_SEMAPHORE_H

#include <objc/objc.h>
#include <stdint.h>

#if defined(__cplusplus)
extern "C" {
#endif

/// No time limit.
#define ZORVEX_DISPATCH_TIME_FOREVER (~UINT64_C(0))

/// A new semaphore object (+1, released with `objc_release`), or nil for a negative value and
/// without memory.
id __zorvex_dispatch_semaphore_create(long value);
/// Adds one; not 0 when a waiting thread was woken.
long __zorvex_dispatch_semaphore_signal(id semaphore);
/// Takes one, waiting at most until `timeout` (nanoseconds since the monotonic clock's start); 0
/// when taken, not 0 when the time ran out.
long __zorvex_dispatch_semaphore_wait(id semaphore, uint64_t timeout);

#if defined(__cplusplus)
}
#endif

#endif
