#ifndef FOUNDATION_NSSTRING_H
#define FOUNDATION_NSSTRING_H

#import <Foundation/NSObject.h>

NS_ASSUME_NONNULL_BEGIN

/// A UTF-16 unit.
typedef unsigned short unichar;

FOUNDATION_CLASS
@interface NSString : NSObject <NSCopying, NSMutableCopying>
+ (instancetype)string;
+ (instancetype)stringWithCharacters:(const unichar *)characters length:(NSUInteger)length;
+ (nullable instancetype)stringWithUTF8String:(const char *)text;
+ (instancetype)stringWithFormat:(NSString *)format, ...;
- (instancetype)initWithCharacters:(const unichar *)characters length:(NSUInteger)length;
- (NSUInteger)length;
- (unichar)characterAtIndex:(NSUInteger)index;
- (void)getCharacters:(unichar *)buffer range:(NSRange)range;
- (nullable const char *)UTF8String;
- (BOOL)isEqualToString:(NSString *)other;
- (BOOL)hasSuffix:(NSString *)suffix;
- (NSString *)substringToIndex:(NSUInteger)index;
@end

FOUNDATION_CLASS
@interface NSMutableString : NSString
- (void)setString:(NSString *)string;
@end

NS_ASSUME_NONNULL_END

#endif
