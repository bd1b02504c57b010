#ifndef FOUNDATION_NSUUID_H
#define FOUNDATION_NSUUID_H

#import <Foundation/NSObject.h>

NS_ASSUME_NONNULL_BEGIN

FOUNDATION_CLASS
@interface NSUUID : NSObject <NSCopying>
- (instancetype)initWithUUIDBytes:(const unsigned char *)bytes;
- (void)getUUIDBytes:(unsigned char *)bytes;
@end

NS_ASSUME_NONNULL_END

#endif
