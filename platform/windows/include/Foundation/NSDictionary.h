#ifndef FOUNDATION_NSDICTIONARY_H
#define FOUNDATION_NSDICTIONARY_H

#import <Foundation/NSEnumerator.h>

NS_ASSUME_NONNULL_BEGIN

FOUNDATION_CLASS
@interface NSDictionary<KeyType, ObjectType>
    : NSObject <NSCopying, NSMutableCopying, NSFastEnumeration>
+ (instancetype)dictionary;
- (NSUInteger)count;
- (nullable ObjectType)objectForKey:(KeyType)key;
@end

FOUNDATION_CLASS
@interface NSMutableDictionary<KeyType, ObjectType> : NSDictionary <KeyType, ObjectType>
- (void)setObject:(ObjectType)object forKey:(KeyType)key;
@end

NS_ASSUME_NONNULL_END

#endif
