/// The platform interface: the runtime's reference counting as functions, and classes by name. On
/// Windows they come from `zorvex.dll`, on Linux from the GNU runtime and its adaptation.
#ifndef OBJC_RUNTIME_H
#define OBJC_RUNTIME_H

#include <objc/objc.h>

#if defined(__cplusplus)
extern "C" {
#endif

/// Adds a reference and returns the object; nil is allowed. For a block that is still in a stack
/// frame counting does nothing.
id objc_retain(id object);
/// Drops a reference; nil is allowed.
void objc_release(id object);
/// Hands one reference to the current autorelease pool and returns the object; nil is allowed.
id objc_autorelease(id object);
/// The block on the heap with a reference for the caller; a stack block is copied. Nil is allowed.
id objc_retainBlock(id block);
/// The class of that name, or nil.
Class objc_getClass(const char *name);

#if defined(__cplusplus)
}
#endif

#endif
