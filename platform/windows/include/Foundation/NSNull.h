#ifndef FOUNDATION_NSNULL_H
#define FOUNDATION_NSNULL_H

#import <Foundation/NSObject.h>

NS_ASSUME_NONNULL_BEGIN

/// What stands for nothing in collections; there is one instance.
FOUNDATION_CLASS
@interface NSNull : NSObject
+ (NSNull *)null;
@end

NS_ASSUME_NONNULL_END

#endif
