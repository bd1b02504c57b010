#ifndef FOUNDATION_NSOBJECT_H
#define FOUNDATION_NSOBJECT_H

#import <Foundation/NSObjCRuntime.h>

@class NSString;

@protocol NSObject
@required
- (BOOL)isEqual:(id)object;
- (NSUInteger)hash;
- (Class)class;
- (Class)superclass;
- (BOOL)isKindOfClass:(Class)aClass;
- (BOOL)respondsToSelector:(SEL)selector;
- (NSString *)description;
#if !__has_feature(objc_arc)
- (instancetype)retain;
- (oneway void)release;
- (instancetype)autorelease;
- (NSUInteger)retainCount;
#endif
@end

@protocol NSCopying
- (id)copyWithZone:(struct _NSZone *)zone;
@end

@protocol NSMutableCopying
- (id)mutableCopyWithZone:(struct _NSZone *)zone;
@end

FOUNDATION_CLASS
__attribute__((objc_root_class))
@interface NSObject<NSObject> {
  Class isa;
}
+ (instancetype)alloc;
+ (instancetype)new;
+ (Class)class;
+ (Class)superclass;
+ (BOOL)instancesRespondToSelector:(SEL)selector;
+ (IMP)instanceMethodForSelector:(SEL)selector;
- (IMP)methodForSelector:(SEL)selector;
- (instancetype)init;
- (void)dealloc;
- (id)copy;
- (id)mutableCopy;
@end

#endif
