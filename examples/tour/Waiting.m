#import "Waiting.h"

#import <WRTObjcBridge/Windows.Foundation.h>

id waitFor(id operation, NSError **error) {
  if (!operation)
    return nil;
  NSConditionLock *ended = [[[NSConditionLock alloc] initWithCondition:NO] autorelease];
  NSError *problem = nil;
  // Every operation's bridge has this method, with a block for its own type.
  [(id<WRTIAsyncActionBridge>)operation
      setCompletedWithHandler:^HRESULT(id done, int status) {
        (void)done;
        (void)status;
        [ended lock];
        [ended unlockWithCondition:YES];
        return 0;
      }
                        error:&problem];
  if (problem) {
    if (error)
      *error = problem;
    return nil;
  }
  [ended lockWhenCondition:YES];
  [ended unlock];
  return operation;
}
