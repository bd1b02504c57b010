#ifndef FOUNDATION_NSURL_H
#define FOUNDATION_NSURL_H

#import <Foundation/NSObject.h>

NS_ASSUME_NONNULL_BEGIN

@class NSString;

FOUNDATION_CLASS
@interface NSURL : NSObject <NSCopying>
+ (nullable instancetype)URLWithString:(NSString *)text;
- (nullable NSString *)absoluteString;
- (nullable NSString *)scheme;
@end

NS_ASSUME_NONNULL_END

#endif
