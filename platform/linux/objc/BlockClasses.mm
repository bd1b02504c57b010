// The classes of blocks, which make them objects like any other: they can be retained, collected
// and printed.

#import <Foundation/Foundation.h>

#include "platform/linux/objc/BlockLayout.h"

#include <Block.h>
#include <atomic>

@interface NSBlock : NSObject <NSCopying>
@end

@implementation NSBlock
- (id)copy {
  return static_cast<id>(_Block_copy(self));
}
- (id)copyWithZone:(NSZone *)zone {
  (void)zone;
  return static_cast<id>(_Block_copy(self));
}
@end

/// A block in a stack frame: its frame owns it, so counting does nothing until it is copied.
@interface NSStackBlock : NSBlock
@end

@implementation NSStackBlock
- (id)retain {
  return self;
}
- (oneway void)release {
}
- (id)autorelease {
  return self;
}
@end

/// A block that captures nothing, in static data.
@interface NSGlobalBlock : NSBlock
@end

@implementation NSGlobalBlock
- (id)retain {
  return self;
}
- (oneway void)release {
}
- (id)autorelease {
  return self;
}
@end

@interface NSMallocBlock : NSBlock
@end

@implementation NSMallocBlock
- (id)retain {
  return static_cast<id>(_Block_copy(self));
}
- (oneway void)release {
  _Block_release(self);
}
- (NSUInteger)retainCount {
  auto *block = reinterpret_cast<wrt::block::Block *>(self);
  return static_cast<NSUInteger>(
      std::atomic_ref(block->references).load(std::memory_order_relaxed));
}
@end

// The compiler puts the address of one of these symbols into the first word of every block, where
// the runtime looks for the class; so each has to be the class structure itself.
__asm__(".globl _NSConcreteStackBlock\n"
        ".set _NSConcreteStackBlock, _OBJC_CLASS_NSStackBlock\n"
        ".globl _NSConcreteGlobalBlock\n"
        ".set _NSConcreteGlobalBlock, _OBJC_CLASS_NSGlobalBlock\n"
        ".globl _NSConcreteMallocBlock\n"
        ".set _NSConcreteMallocBlock, _OBJC_CLASS_NSMallocBlock\n");
