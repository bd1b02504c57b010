#import <WRTSupport/WRTDispatching.h>

#include "support/implement/Failure.h"

using namespace wrt;

BOOL WRTRunOn(id<WRTICoreDispatcherBridge> dispatcher, void (^block)(void), NSError **error) {
  NSError *failure = nil;
  if (!dispatcher)
    failure = WRTCreateNSErrorFromHRESULT(status::kPointer);
  else
    WRTTry([dispatcher runAsyncWithPriority:WRTCoreDispatcherPriorityNormal
                              agileCallback:^HRESULT {
                                @autoreleasepool {
                                  block();
                                }
                                return status::kOk;
                              }
                                      error:&failure],
           &failure);
  if (error)
    *error = failure;
  return !failure;
}

void WRTWhenEndedOn(id<WRTICoreDispatcherBridge> dispatcher, id operation,
                    void (^then)(id, NSError *)) {
  WRTWhenEnded(operation, ^(id ended, NSError *failure) {
    NSError *refusal = nil;
    if (!WRTRunOn(
            dispatcher,
            ^{
              then(ended, failure);
            },
            &refusal))
      then(nil, refusal);
  });
}

id WRTHandlerOn(id<WRTICoreDispatcherBridge> dispatcher, id handler) {
  // Captured as a block it is copied with the new one; as an object it would stay in its frame.
  HRESULT (^const run)(id, id) = handler;
  return [[^HRESULT(id sender, id arguments) {
    NSError *failure = nil;
    WRTRunOn(
        dispatcher,
        ^{
          run(sender, arguments);
        },
        &failure);
    return static_cast<HRESULT>([failure code]);
  } copy] autorelease];
}
