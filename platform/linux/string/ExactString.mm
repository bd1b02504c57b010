#include "platform/linux/string/ExactString.h"

#import <Foundation/Foundation.h>

#include <algorithm>
#include <cstdlib>

@implementation WRTExactString

- (instancetype)initWithUnits:(std::u16string_view)units {
  self = [super init];
  if (self == nil)
    return nil;
  _units = static_cast<unichar *>(std::malloc(std::max<size_t>(units.size(), 1) * sizeof(unichar)));
  if (_units == nullptr) {
    [self release];
    return nil;
  }
  std::ranges::copy(units, _units);
  _length = units.size();
  return self;
}

- (void)dealloc {
  std::free(_units);
  [super dealloc];
}

- (id)copyWithZone:(NSZone *)zone {
  (void)zone;
  return [self retain];
}

- (void)checkRange:(NSRange)range {
  if (range.location > _length || range.length > _length - range.location) {
    [NSException raise:NSRangeException
                format:@"Range (%lu, %lu) is beyond the string", range.location, range.length];
  }
}

// What is inherited for these goes through constructors that give nil for such units.

- (id)mutableCopyWithZone:(NSZone *)zone {
  NSMutableString *copy = [[NSMutableString allocWithZone:zone] initWithCapacity:_length];
  [copy appendString:self];
  return copy;
}

- (NSString *)substringWithRange:(NSRange)range {
  [self checkRange:range];
  const std::u16string_view units(reinterpret_cast<char16_t *>(_units), _length);
  return [[[WRTExactString alloc] initWithUnits:units.substr(range.location, range.length)]
      autorelease];
}

- (NSString *)stringByAppendingString:(NSString *)other {
  NSMutableString *result = [[self mutableCopy] autorelease];
  [result appendString:other];
  return result;
}

- (NSUInteger)length {
  return _length;
}

- (unichar)characterAtIndex:(NSUInteger)index {
  if (index >= _length)
    [NSException raise:NSRangeException format:@"Index %lu is beyond the string", index];
  return _units[index];
}

- (void)getCharacters:(unichar *)buffer range:(NSRange)range {
  [self checkRange:range];
  std::copy_n(_units + range.location, range.length, buffer);
}

@end
