#define FOUNDATION_CLASS OBJC_EXPORT
#import <Foundation/Foundation.h>

#include "platform/arm/doubles/Host.h"
#include "platform/arm/doubles/zorvex/Runtime.h"

extern "C" Class objc_getClass(const char *name) {
  if (![[NSString stringWithUTF8String:name] isEqualToString:@"NSNull"])
    hostEnd("a class that the double does not know by name");
  return [NSNull class];
}

@implementation NSNull
+ (NSNull *)null {
  static NSNull *instance;
  if (!instance) {
    instance = [[NSNull alloc] init];
    countObject(-1); // lives for ever
  }
  return instance;
}
@end

@interface NSError () {
@package
  NSString *_domain;
  NSInteger _code;
  NSDictionary *_userInfo;
}
@end

@implementation NSError
+ (instancetype)errorWithDomain:(NSString *)domain
                           code:(NSInteger)code
                       userInfo:(NSDictionary *)userInfo {
  NSError *error = [[self alloc] init];
  error->_domain = [domain retain];
  error->_code = code;
  error->_userInfo = userInfo;
  return [error autorelease];
}
- (void)dealloc {
  [_domain release];
  [super dealloc];
}
- (NSString *)domain {
  return _domain;
}
- (NSInteger)code {
  return _code;
}
- (NSDictionary *)userInfo {
  return _userInfo;
}
- (id)copyWithZone:(struct _NSZone *)zone {
  (void)zone;
  return [self retain];
}
@end

@interface NSData () {
@package
  uint8_t *_bytes;
  NSUInteger _length;
}
@end

@implementation NSData
+ (instancetype)data {
  return [[[self alloc] init] autorelease];
}
+ (instancetype)dataWithBytes:(const void *)bytes length:(NSUInteger)length {
  return [[[self alloc] initWithBytes:bytes length:length] autorelease];
}
+ (instancetype)dataWithData:(NSData *)data {
  return [self dataWithBytes:data->_bytes length:data->_length];
}
- (instancetype)initWithBytes:(const void *)bytes length:(NSUInteger)length {
  _bytes = static_cast<uint8_t *>(malloc(length));
  _length = length;
  memcpy(_bytes, bytes, length);
  return self;
}
- (void)dealloc {
  free(_bytes);
  [super dealloc];
}
- (NSUInteger)length {
  return _length;
}
- (const void *)bytes {
  return _bytes;
}
- (BOOL)isEqualToData:(NSData *)other {
  if (_length != other->_length)
    return NO;
  for (NSUInteger i = 0; i < _length; ++i)
    if (_bytes[i] != other->_bytes[i])
      return NO;
  return YES;
}
- (id)copyWithZone:(struct _NSZone *)zone {
  (void)zone;
  return [self retain];
}
- (id)mutableCopyWithZone:(struct _NSZone *)zone {
  (void)zone;
  hostEnd("the double copies nothing");
}
@end

@implementation NSMutableData
- (void *)mutableBytes {
  return _bytes;
}
- (void)setLength:(NSUInteger)length {
  auto *bytes = static_cast<uint8_t *>(malloc(length));
  memset(bytes, 0, length);
  memcpy(bytes, _bytes, length < _length ? length : _length);
  free(_bytes);
  _bytes = bytes;
  _length = length;
}
- (void)appendBytes:(const void *)bytes length:(NSUInteger)length {
  const NSUInteger old = _length;
  [self setLength:old + length];
  memcpy(_bytes + old, bytes, length);
}
@end
