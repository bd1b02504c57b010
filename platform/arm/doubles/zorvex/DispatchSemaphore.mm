#define FOUNDATION_CLASS OBJC_EXPORT
#import <Foundation/Foundation.h>

#include "platform/arm/doubles/Host.h"
#include "platform/arm/doubles/zorvex/Runtime.h"

/// There is one thread: whoever would wait for a signal waits for ever.
OBJC_EXPORT
@interface TestSemaphore : NSObject {
@package
  long _value;
}
@end
@implementation TestSemaphore
@end

extern "C" {

id __zorvex_dispatch_semaphore_create(long value) {
  TestSemaphore *semaphore = [[TestSemaphore alloc] init];
  semaphore->_value = value;
  return semaphore;
}

long __zorvex_dispatch_semaphore_signal(id semaphore) {
  ++static_cast<TestSemaphore *>(semaphore)->_value;
  return 0;
}

long __zorvex_dispatch_semaphore_wait(id semaphore, uint64_t) {
  if (static_cast<TestSemaphore *>(semaphore)->_value-- <= 0)
    hostEnd("a semaphore that nobody will signal");
  return 0;
}
}
