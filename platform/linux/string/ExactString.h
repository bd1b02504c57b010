#ifndef WRT_EXACT_STRING_H
#define WRT_EXACT_STRING_H

#import <Foundation/NSString.h>
#include <string_view>

/// A string of any UTF-16 units. GNUstep's own refuse unpaired surrogates and swallow a leading
/// byte order mark.
@interface WRTExactString : NSString {
  unichar *_units;
  NSUInteger _length;
}
/// With a copy of the units; nil when memory runs out.
- (instancetype)initWithUnits:(std::u16string_view)units;
@end

#endif
