// What GNUstep Base allocates once and loses when its classes are first used. Stripped as it is, no
// suppression can name those functions, and one for the whole library would cover every object that
// its allocation functions make, ours included. So the classes are used once before anything is
// checked. Linked into every test program.

#import <Foundation/Foundation.h>

#if __has_feature(address_sanitizer)
#include <sanitizer/lsan_interface.h>

@interface WRTFoundationStartUp : NSObject
@end

@implementation WRTFoundationStartUp
// Before main, and not before this file's selectors are registered.
+ (void)load {
  const __lsan::ScopedDisabler disabler;
  @autoreleasepool {
    [NSMutableArray array];
  }
}
@end
#endif
