#include <ClassReceiver.h>
#include <DispatchSemaphore.h>

#import <Foundation/Foundation.h>

#include "platform/linux/objc/Semaphore.h"

#include <WRTObjcBridge/WRTTypes.h>
#include <new>

@interface WRTDispatchSemaphore : NSObject {
@public
  wrt::Semaphore *_semaphore;
}
@end

@implementation WRTDispatchSemaphore
- (void)dealloc {
  delete _semaphore;
  [super dealloc];
}
@end

extern "C" WRT_DLLEXPORT id __zorvex_dispatch_semaphore_create(long value) {
  if (value < 0)
    return nil;
  WRTDispatchSemaphore *object = [[WRT_CLASS(WRTDispatchSemaphore) alloc] init];
  if (object != nil)
    object->_semaphore = new (std::nothrow) wrt::Semaphore(value);
  if (object == nil || object->_semaphore != nullptr)
    return object;
  [object release];
  return nil;
}

extern "C" WRT_DLLEXPORT long __zorvex_dispatch_semaphore_signal(id semaphore) {
  return static_cast<WRTDispatchSemaphore *>(semaphore)->_semaphore->signal() ? 1 : 0;
}

extern "C" WRT_DLLEXPORT long __zorvex_dispatch_semaphore_wait(id semaphore, uint64_t timeout) {
  using TimePoint = wrt::Semaphore::TimePoint;
  std::optional<TimePoint> deadline;
  // The clock does not reach times past its maximum, the one that means "forever" among them.
  if (timeout <= static_cast<uint64_t>(TimePoint::duration::max().count()))
    deadline = TimePoint(std::chrono::nanoseconds(timeout));
  return static_cast<WRTDispatchSemaphore *>(semaphore)->_semaphore->wait(deadline) ? 0 : 1;
}
