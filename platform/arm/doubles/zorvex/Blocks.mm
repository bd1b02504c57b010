#define FOUNDATION_CLASS OBJC_EXPORT
#import <Foundation/Foundation.h>

#include "platform/arm/doubles/Host.h"
#include "platform/arm/doubles/zorvex/Runtime.h"

// The blocks ABI of clang (its document "Block Implementation Specification").

namespace {

struct Descriptor {
  unsigned long reserved;
  unsigned long size;
  void (*copy)(void *target, const void *source);
  void (*dispose)(const void *block);
};

struct Block {
  Class isa;
  int flags;
  int reserved;
  void (*invoke)(void);
  Descriptor *descriptor;
};

/// A variable shared by blocks.
struct ByRef {
  void *isa;
  ByRef *forwarding;
  int flags;
  int size;
  void (*keep)(void *target, void *source);
  void (*destroy)(void *);
};

enum Flags : int {
  kOneReference = 2, // bit 0 is not part of the count
  kReferenceMask = 0xFFFE,
  kNeedsFree = 1 << 24,
  kHasHelpers = 1 << 25,
  kIsGlobal = 1 << 28
};

enum Fields : int { kObject = 3, kBlock = 7, kByRef = 8, kByRefCaller = 128 };

} // namespace

OBJC_EXPORT
@interface NSBlock : NSObject
@end

OBJC_EXPORT
@interface NSStackBlock : NSBlock
@end

OBJC_EXPORT
@interface NSGlobalBlock : NSBlock
@end

OBJC_EXPORT
@interface NSMallocBlock : NSBlock
@end

extern "C" {

void *_Block_copy(const void *source) {
  auto *block = static_cast<Block *>(const_cast<void *>(source));
  if (!block || (block->flags & kIsGlobal))
    return block;
  if (block->flags & kNeedsFree) {
    block->flags += kOneReference;
    return block;
  }
  auto *copy = static_cast<Block *>(malloc(block->descriptor->size));
  memcpy(copy, block, block->descriptor->size);
  copy->isa = [NSMallocBlock class];
  copy->flags = (copy->flags & ~kReferenceMask) | kNeedsFree | kOneReference;
  if (copy->flags & kHasHelpers)
    copy->descriptor->copy(copy, block);
  countObject(1);
  return copy;
}

void _Block_release(const void *source) {
  auto *block = static_cast<Block *>(const_cast<void *>(source));
  if (!block || !(block->flags & kNeedsFree))
    return;
  block->flags -= kOneReference;
  if (block->flags & kReferenceMask)
    return;
  if (block->flags & kHasHelpers)
    block->descriptor->dispose(block);
  countObject(-1);
  free(block);
}

id objc_retainBlock(id block) { return static_cast<id>(_Block_copy(block)); }

static ByRef *copyByRef(ByRef *source) {
  ByRef *shared = source->forwarding;
  if (shared->flags & kNeedsFree) {
    shared->flags += kOneReference;
    return shared;
  }
  auto *copy = static_cast<ByRef *>(malloc(static_cast<size_t>(source->size)));
  memcpy(copy, source, static_cast<size_t>(source->size));
  // One reference for the block, one for the frame that the variable comes from.
  copy->flags = (copy->flags & ~kReferenceMask) | kNeedsFree | 2 * kOneReference;
  copy->forwarding = copy;
  source->forwarding = copy;
  if (copy->flags & kHasHelpers)
    copy->keep(copy, source);
  countObject(1);
  return copy;
}

static void releaseByRef(ByRef *any) {
  ByRef *shared = any->forwarding;
  if (!(shared->flags & kNeedsFree))
    return;
  shared->flags -= kOneReference;
  if (shared->flags & kReferenceMask)
    return;
  if (shared->flags & kHasHelpers)
    shared->destroy(shared);
  countObject(-1);
  free(shared);
}

void _Block_object_assign(void *target, const void *object, int field) {
  auto **place = static_cast<const void **>(target);
  if (field & kByRefCaller)
    *place = object;
  else if (field == kBlock)
    *place = _Block_copy(object);
  else if (field == kObject)
    *place = [static_cast<id>(const_cast<void *>(object)) retain];
  else if ((field & 15) == kByRef)
    *place = copyByRef(static_cast<ByRef *>(const_cast<void *>(object)));
  else
    hostEnd("a block captures something that the double does not know");
}

void _Block_object_dispose(const void *object, int field) {
  if (field & kByRefCaller)
    return;
  if (field == kBlock)
    _Block_release(object);
  else if (field == kObject)
    [static_cast<id>(const_cast<void *>(object)) release];
  else if ((field & 15) == kByRef)
    releaseByRef(static_cast<ByRef *>(const_cast<void *>(object)));
}
}

@implementation NSBlock
- (instancetype)retain {
  return static_cast<id>(_Block_copy(self));
}
- (oneway void)release {
  _Block_release(self);
}
@end
// On the stack a block lives as long as its frame, whoever counts; copying is what makes it last.
@implementation NSStackBlock
- (instancetype)retain {
  return self;
}
- (oneway void)release {
}
@end
@implementation NSGlobalBlock
@end
@implementation NSMallocBlock
@end

// The compiler's names for the classes of blocks are the classes themselves.
asm(".globl _NSConcreteStackBlock, _NSConcreteGlobalBlock\n"
    ".set _NSConcreteStackBlock, \"OBJC_CLASS_$_NSStackBlock\"\n"
    ".set _NSConcreteGlobalBlock, \"OBJC_CLASS_$_NSGlobalBlock\"\n");
