#ifndef FOUNDATION_NSERROR_H
#define FOUNDATION_NSERROR_H

#import <Foundation/NSObject.h>

NS_ASSUME_NONNULL_BEGIN

@class NSDictionary;

FOUNDATION_CLASS
@interface NSError : NSObject <NSCopying>
+ (instancetype)errorWithDomain:(NSString *)domain
                           code:(NSInteger)code
                       userInfo:(nullable NSDictionary *)userInfo;
- (instancetype)initWithDomain:(NSString *)domain
                          code:(NSInteger)code
                      userInfo:(nullable NSDictionary *)userInfo;
- (NSString *)domain;
- (NSInteger)code;
- (nullable NSDictionary *)userInfo;
@end

NS_ASSUME_NONNULL_END

#endif
