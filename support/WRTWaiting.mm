#import <WRTSupport/WRTWaiting.h>

#import <WRTObjcBridge/WRTConversions.h>
#include <WRTStatus.h>

using namespace wrt;

namespace {

/// What the operation's `IAsyncInfo` says; the failure in `*failure`.
int statusOf(id operation, NSError **failure) {
  WRTMarkError(failure);
  const int status = [[WRTIAsyncInfoBridge cast:operation] getStatusWithError:failure];
  WRTSettleError(failure);
  return status;
}

/// Sets the handler of any operation: every bridge of one has this member, with a block for its own
/// type. Nil or why it cannot be set.
NSError *setCompleted(id operation, HRESULT (^handler)(id, int)) {
  NSError *failure = nil;
  WRTMarkError(&failure);
  [static_cast<id<WRTIAsyncActionBridge>>(operation) setCompletedWithHandler:handler
                                                                       error:&failure];
  WRTSettleError(&failure);
  return failure;
}

/// Waits for an operation that may still run; the same as `WRTWaitForEnd`, nil for an end.
NSError *waitForRunning(id operation, NSDate *limit) {
  NSConditionLock *ended = [[[NSConditionLock alloc] initWithCondition:NO] autorelease];
  // The block owns the lock: after a limit the end may come whenever it likes.
  NSError *failure = setCompleted(operation, ^HRESULT(id, int) {
    [ended lock];
    [ended unlockWithCondition:YES];
    return status::kOk;
  });
  if (failure)
    return failure;
  if (!limit) {
    [ended lockWhenCondition:YES];
  } else if (![ended lockWhenCondition:YES beforeDate:limit]) {
    [[WRTIAsyncInfoBridge cast:operation] cancelWithError:nullptr];
    return WRTCreateNSErrorFromHRESULT(status::kAbort);
  }
  [ended unlock];
  return nil;
}

} // namespace

BOOL WRTWaitForEnd(id operation, NSDate *limit, NSError **error) {
  if (!operation) {
    if (error && !*error)
      *error = WRTCreateNSErrorFromHRESULT(status::kPointer);
    return NO;
  }
  NSError *failure = nil;
  // An operation that has ended needs no handler.
  if (statusOf(operation, &failure) == WRTAsyncStatusStarted && !failure)
    failure = waitForRunning(operation, limit);
  if (error)
    *error = failure;
  return !failure;
}

void WRTWhenEnded(id operation, void (^then)(id, NSError *)) {
  NSError *failure = operation ? setCompleted(operation,
                                              ^HRESULT(id ended, int) {
                                                @autoreleasepool {
                                                  then(ended, nil);
                                                }
                                                return status::kOk;
                                              })
                               : WRTCreateNSErrorFromHRESULT(status::kPointer);
  if (failure)
    then(nil, failure);
}
