#define FOUNDATION_CLASS OBJC_EXPORT
#import <Foundation/Foundation.h>

#include "platform/arm/doubles/Host.h"
#include "platform/arm/doubles/zorvex/Runtime.h"

// Strings are UTF-16 behind their instance; constant strings have the compiler's layout.

@interface NSString () {
@package
  NSUInteger _length;
  char *_utf8;
}
@end

namespace {

unichar *unitsOf(NSString *string) { return reinterpret_cast<unichar *>(&string->_utf8 + 1); }

} // namespace

@implementation NSString
+ (instancetype)string {
  return [[[self alloc] init] autorelease];
}
+ (instancetype)stringWithCharacters:(const unichar *)characters length:(NSUInteger)length {
  auto *string = static_cast<NSString *>(allocateInstance(self, (length + 1) * sizeof(unichar)));
  string->_length = length;
  if (length > 0)
    memcpy(unitsOf(string), characters, length * sizeof(unichar));
  return objc_autorelease(string);
}
+ (instancetype)stringWithUTF8String:(const char *)text {
  unichar units[256];
  NSUInteger length = 0;
  for (; text[length]; ++length) {
    const auto character = static_cast<unsigned char>(text[length]);
    if (length == 256 || character >= 0x80)
      hostEnd("the double's strings are made of little ASCII");
    units[length] = character;
  }
  return [self stringWithCharacters:units length:length];
}
+ (instancetype)stringWithFormat:(NSString *)format, ... {
  (void)format;
  hostEnd("the double formats nothing");
}
- (instancetype)initWithCharacters:(const unichar *)characters length:(NSUInteger)length {
  Class type = [self class];
  [self release];
  return [[type stringWithCharacters:characters length:length] retain];
}
- (void)dealloc {
  free(_utf8);
  [super dealloc];
}
- (NSUInteger)length {
  return _length;
}
- (unichar)characterAtIndex:(NSUInteger)index {
  if (index >= _length)
    hostEnd("a character beyond a string's end");
  return unitsOf(self)[index];
}
- (void)getCharacters:(unichar *)buffer range:(NSRange)range {
  for (NSUInteger i = 0; i < range.length; ++i)
    buffer[i] = [self characterAtIndex:range.location + i];
}
- (const char *)UTF8String {
  if (!_utf8) {
    _utf8 = static_cast<char *>(malloc(_length + 1));
    for (NSUInteger i = 0; i < _length; ++i)
      _utf8[i] = static_cast<char>(unitsOf(self)[i]);
    _utf8[_length] = 0;
  }
  return _utf8;
}
- (BOOL)isEqualToString:(NSString *)other {
  if ([self length] != [other length])
    return NO;
  for (NSUInteger i = 0; i < [self length]; ++i)
    if ([self characterAtIndex:i] != [other characterAtIndex:i])
      return NO;
  return YES;
}
- (BOOL)isEqual:(id)object {
  return self == object ||
         ([object isKindOfClass:[NSString class]] && [self isEqualToString:object]);
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

@implementation NSMutableString
- (void)setString:(NSString *)string {
  (void)string;
  hostEnd("the double changes no string");
}
@end

/// What a string literal is. Its first two words behind the class are flags and characters.
OBJC_EXPORT
@interface NSConstantString : NSString {
@package
  // NSString's own two variables lie over the literal's flags and characters.
  NSUInteger _literalLength;
}
@end

@implementation NSConstantString
- (NSUInteger)length {
  return _literalLength;
}
- (unichar)characterAtIndex:(NSUInteger)index {
  constexpr NSUInteger kUtf16 = 0x10; // the flag that tells 16-bit characters from 8-bit ones
  if (index >= _literalLength)
    hostEnd("a character beyond a literal's end");
  if (_length & kUtf16)
    return reinterpret_cast<const unichar *>(_utf8)[index];
  return static_cast<unsigned char>(_utf8[index]);
}
- (const char *)UTF8String {
  return _utf8;
}
- (instancetype)retain {
  return self;
}
- (oneway void)release {
}
- (instancetype)autorelease {
  return self;
}
@end

// The class word of literals, as the compiler names it, is the class itself.
asm(".globl __CFConstantStringClassReference\n"
    ".set __CFConstantStringClassReference, \"OBJC_CLASS_$_NSConstantString\"\n");
