#ifndef FOUNDATION_NSDATA_H
#define FOUNDATION_NSDATA_H

#import <Foundation/NSObject.h>

NS_ASSUME_NONNULL_BEGIN

FOUNDATION_CLASS
@interface NSData : NSObject <NSCopying, NSMutableCopying>
+ (instancetype)data;
/// Copies the bytes.
+ (instancetype)dataWithBytes:(nullable const void *)bytes length:(NSUInteger)length;
+ (instancetype)dataWithData:(NSData *)data;
- (instancetype)initWithBytes:(nullable const void *)bytes length:(NSUInteger)length;
- (NSUInteger)length;
- (nullable const void *)bytes;
- (BOOL)isEqualToData:(NSData *)other;
@end

FOUNDATION_CLASS
@interface NSMutableData : NSData
- (nullable void *)mutableBytes;
- (void)setLength:(NSUInteger)length;
- (void)appendBytes:(const void *)bytes length:(NSUInteger)length;
@end

NS_ASSUME_NONNULL_END

#endif
