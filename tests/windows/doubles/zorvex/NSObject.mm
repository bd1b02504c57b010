#define FOUNDATION_CLASS OBJC_EXPORT
#import <Foundation/Foundation.h>

#include "doubles/Host.h"
#include "doubles/zorvex/Runtime.h"

extern "C" {
id testRetain(id object);
void testRelease(id object);
}

@implementation NSObject
+ (instancetype)alloc {
  return testAllocate(self, 0);
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
  return testFindMethod(reinterpret_cast<ClassObject *>(self),
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
  testDeallocate(self);
}
- (instancetype)retain {
  return testRetain(self);
}
- (oneway void)release {
  testRelease(self);
}
- (instancetype)autorelease {
  return objc_autorelease(self);
}
- (NSUInteger)retainCount {
  return static_cast<NSUInteger>(testRetainCount(self));
}
- (Class)class {
  return reinterpret_cast<Class>(testClassOf(self));
}
- (Class)superclass {
  return reinterpret_cast<Class>(testClassOf(self)->superclass);
}
- (BOOL)isEqual:(id)object {
  return self == object;
}
- (NSUInteger)hash {
  return static_cast<NSUInteger>(reinterpret_cast<uintptr_t>(self));
}
- (BOOL)isKindOfClass:(Class)aClass {
  auto *each = testClassOf(self);
  while (each && each != reinterpret_cast<ClassObject *>(aClass))
    each = each->superclass;
  return each != nullptr;
}
- (BOOL)respondsToSelector:(SEL)selector {
  return testFindMethod(testClassOf(self), reinterpret_cast<const char *>(selector)) != nullptr;
}
- (NSString *)description {
  testEnd("nobody asks the double for descriptions");
}
- (id)copy {
  testEnd("the double copies nothing");
}
- (id)mutableCopy {
  testEnd("the double copies nothing");
}
@end
