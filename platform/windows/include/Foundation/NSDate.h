#ifndef FOUNDATION_NSDATE_H
#define FOUNDATION_NSDATE_H

#import <Foundation/NSObject.h>

NS_ASSUME_NONNULL_BEGIN

typedef double NSTimeInterval;

FOUNDATION_CLASS
@interface NSDate : NSObject <NSCopying>
+ (instancetype)dateWithTimeIntervalSinceReferenceDate:(NSTimeInterval)seconds;
- (NSTimeInterval)timeIntervalSinceReferenceDate;
@end

NS_ASSUME_NONNULL_END

#endif
