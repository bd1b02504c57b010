#define FOUNDATION_CLASS OBJC_EXPORT
#import <Foundation/Foundation.h>

#include "platform/arm/doubles/Host.h"
#include "platform/arm/doubles/zorvex/Runtime.h"

extern "C" {
id retainInstance(id object);
void releaseInstance(id object);
}

@implementation NSObject
+ (instancetype)alloc {
  return allocateInstance(self, 0);
}
+ (instancetype)new {
  return [[self alloc] init];
}
+ (Class)class {
  return self;
}
+ (Class)superclass {
  return reinterpret_cast<Class>(reinterpret_cast<ClassObject *>(self)->superclass);
}
+ (BOOL)instancesRespondToSelector:(SEL)selector {
  return findMethod(reinterpret_cast<ClassObject *>(self),
                    reinterpret_cast<const char *>(selector)) != nullptr;
}
// Classes are objects that are never counted.
+ (id)retain {
  return self;
}
+ (oneway void)release {
}
+ (id)autorelease {
  return self;
}
- (instancetype)init {
  return self;
}
- (void)dealloc {
  deallocateInstance(self);
}
- (instancetype)retain {
  return retainInstance(self);
}
- (oneway void)release {
  releaseInstance(self);
}
- (instancetype)autorelease {
  return objc_autorelease(self);
}
- (NSUInteger)retainCount {
  return static_cast<NSUInteger>(testRetainCount(self));
}
- (Class)class {
  return reinterpret_cast<Class>(classOf(self));
}
- (Class)superclass {
  return reinterpret_cast<Class>(classOf(self)->superclass);
}
- (BOOL)isEqual:(id)object {
  return self == object;
}
- (NSUInteger)hash {
  return static_cast<NSUInteger>(reinterpret_cast<uintptr_t>(self));
}
- (BOOL)isKindOfClass:(Class)aClass {
  auto *each = classOf(self);
  while (each && each != reinterpret_cast<ClassObject *>(aClass))
    each = each->superclass;
  return each != nullptr;
}
- (BOOL)respondsToSelector:(SEL)selector {
  return findMethod(classOf(self), reinterpret_cast<const char *>(selector)) != nullptr;
}
- (NSString *)description {
  hostEnd("nobody asks the double for descriptions");
}
- (id)copy {
  hostEnd("the double copies nothing");
}
- (id)mutableCopy {
  hostEnd("the double copies nothing");
}
@end
