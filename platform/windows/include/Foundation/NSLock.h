#ifndef FOUNDATION_NSLOCK_H
#define FOUNDATION_NSLOCK_H

#import <Foundation/NSObject.h>

NS_ASSUME_NONNULL_BEGIN

@class NSDate;

FOUNDATION_CLASS
@interface NSLock : NSObject
- (void)lock;
- (void)unlock;
@end

FOUNDATION_CLASS
@interface NSConditionLock : NSObject
- (instancetype)initWithCondition:(NSInteger)condition;
- (void)lock;
- (void)unlock;
- (void)unlockWithCondition:(NSInteger)condition;
- (void)lockWhenCondition:(NSInteger)condition;
- (BOOL)lockWhenCondition:(NSInteger)condition beforeDate:(NSDate *)limit;
@end

NS_ASSUME_NONNULL_END

#endif
