#ifndef FOUNDATION_NSEXCEPTION_H
#define FOUNDATION_NSEXCEPTION_H

#import <Foundation/NSObject.h>

NS_ASSUME_NONNULL_BEGIN

@class NSString;

FOUNDATION_IMPORT NSString *const NSGenericException;

FOUNDATION_CLASS
@interface NSException : NSObject
/// Does not return.
+ (void)raise:(NSString *)name format:(NSString *)format, ...;
@end

NS_ASSUME_NONNULL_END

#endif
