#ifndef FOUNDATION_NSARRAY_H
#define FOUNDATION_NSARRAY_H

#import <Foundation/NSEnumerator.h>

NS_ASSUME_NONNULL_BEGIN

FOUNDATION_CLASS
@interface NSArray<ObjectType> : NSObject <NSCopying, NSMutableCopying, NSFastEnumeration>
+ (instancetype)array;
+ (instancetype)arrayWithObject:(ObjectType)object;
+ (instancetype)arrayWithArray:(NSArray *)array;
+ (instancetype)arrayWithObjects:(const ObjectType _Nonnull *_Nullable)objects
                           count:(NSUInteger)count;
- (instancetype)initWithObjects:(const ObjectType _Nonnull *_Nullable)objects
                          count:(NSUInteger)count;
- (NSUInteger)count;
- (ObjectType)objectAtIndex:(NSUInteger)index;
- (ObjectType)objectAtIndexedSubscript:(NSUInteger)index;
- (NSEnumerator *)objectEnumerator;
- (NSEnumerator *)reverseObjectEnumerator;
@end

FOUNDATION_CLASS
@interface NSMutableArray<ObjectType> : NSArray <ObjectType>
+ (instancetype)arrayWithCapacity:(NSUInteger)capacity;
- (instancetype)initWithCapacity:(NSUInteger)capacity;
- (void)addObject:(ObjectType)object;
- (void)insertObject:(ObjectType)object atIndex:(NSUInteger)index;
- (void)removeLastObject;
- (void)removeAllObjects;
- (void)removeObjectAtIndex:(NSUInteger)index;
- (void)replaceObjectAtIndex:(NSUInteger)index withObject:(ObjectType)object;
- (void)setObject:(ObjectType)object atIndexedSubscript:(NSUInteger)index;
- (void)setArray:(NSArray *)array;
@end

NS_ASSUME_NONNULL_END

#endif
