#ifndef WRT_ARM_ZORVEX_RUNTIME_H
#define WRT_ARM_ZORVEX_RUNTIME_H

#include <ObjCRuntime.h>
#include <stddef.h>
#include <stdint.h>

// A small Objective-C runtime for the 32-bit ABI with non-fragile instance variables: enough for
// the library and its tests, and strict about what it is given.

struct MethodEntry {
  const char *selector;
  const char *encoding;
  IMP implementation;
};

struct MethodList {
  uint32_t entrySize;
  uint32_t count;
  MethodEntry entries[1];
};

struct ClassData {
  uint32_t flags;
  uint32_t instanceStart;
  uint32_t instanceSize;
  const void *layout;
  const char *name;
  const MethodList *methods;
  const void *protocols;
  const void *variables;
  const void *weakLayout;
  const void *properties;
};

struct ClassObject {
  ClassObject *isa;
  ClassObject *superclass;
  void *cache;
  void *vtable;
  const ClassData *data;
};

extern "C" {

/// The implementation of a method, or null. Selectors are compared as text: images are not merged.
IMP findMethod(const ClassObject *start, const char *selector);
/// As `findMethod`; ends the run when there is none. Message sending calls this.
IMP lookUpMethod(const ClassObject *start, const char *selector);

/// An object's class, at its beginning.
inline ClassObject *classOf(id object) { return *reinterpret_cast<ClassObject **>(object); }

/// A new zeroed instance (+1).
id allocateInstance(Class type, size_t extraBytes);
/// Ends an instance whose `dealloc` has run: clears its C++ instance variables, frees it.
void deallocateInstance(id object);

/// What tests ask for: objects and blocks that live, an object's reference count, images that are
/// registered, autoreleased objects that wait.
OBJC_EXPORT int testLiveObjects(void);
OBJC_EXPORT int testRetainCount(id object);
OBJC_EXPORT int testRegisteredImages(void);
OBJC_EXPORT unsigned testPoolPush(void);
OBJC_EXPORT void testPoolPop(unsigned mark);

/// Counts heap blocks of the blocks runtime among the live objects.
void countObject(int change);

void *malloc(size_t size);
void free(void *block);
void *memcpy(void *target, const void *source, size_t size);
void *memset(void *target, int value, size_t size);
}

#endif
