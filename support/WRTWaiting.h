/// Waiting for asynchronous operations, whatever they yield:
///
///     __auto_type file = WRTAwait([folder getFileAsyncWithName:@"a.txt" error:&error], &error);
///     WRTThen([file deleteAsyncOverloadDefaultOptionsWithError:&error], ^(NSError *failure) { ...
///     });
///
/// There is an overload for each kind of operation: the result has the operation's own type, and an
/// operation of a proxy class, whose result cannot be read, is refused by the compiler. An
/// operation must not have a completion handler yet. A thread that an operation needs for its end,
/// such as that of a window, must not wait for it: it would never end.
#ifndef WRT_WAITING_H
#define WRT_WAITING_H

#import <WRTObjcBridge/Windows.Foundation.h>
#import <WRTSupport/WRTAsking.h>
#import <WRTSupport/WRTOperations.h>

#pragma clang assume_nonnull begin
WRT_SUPPORT_BEGIN

WRT_EXTERN_C_BEGIN

/// Waits until `operation` has ended in any way, at most until `limit` (nil: without limit); then
/// it is cancelled and the error is `E_ABORT`. NO with an error when that cannot be learnt; for nil
/// with the error that is there already, so that a failed start is reported, else `E_POINTER`.
WRT_SUPPORT_API BOOL WRTWaitForEnd(id _Nullable operation, NSDate *_Nullable limit,
                                   NSError *_Nullable *_Nullable error);
/// Calls `then` once: with a bridge of the operation on the thread on which it ends (this one if it
/// has ended), or at once with nil and the reason why its end cannot be learnt.
WRT_SUPPORT_API void WRTWhenEnded(id _Nullable operation,
                                  void (^then)(id _Nullable ended, NSError *_Nullable failure));

WRT_EXTERN_C_END

/// `WRTResultOf` reads the result of an operation that has ended.
///
/// `WRTAwait` waits for the end of an operation and gives its result; nil or 0 and the operation's
/// failure in `error` (NULL allowed). A nil operation leaves the error that says why there is none.
///
/// `WRTAwaitUntil` waits until `limit` at most: then the operation is cancelled and the error is
/// `E_ABORT`. It does not wait for the end of the cancelled work.
///
/// `WRTThen` does not wait: the block gets the result or the failure, once, on the thread on which
/// the operation ends, or on this one if it has ended already or is nil.
#define WRT_SUPPORT_WAITING(Operation, Result)                                                     \
  WRT_SUPPORT_OVERLOAD Result WRTResultOf(id<Operation> _Nullable operation,                       \
                                          NSError *_Nullable *_Nullable error) {                   \
    WRTMarkError(error);                                                                           \
    Result result = [operation getResultsWithError:error];                                         \
    WRTSettleError(error);                                                                         \
    return result;                                                                                 \
  }                                                                                                \
  WRT_SUPPORT_OVERLOAD Result WRTAwaitUntil(id<Operation> _Nullable operation,                     \
                                            NSDate *_Nullable limit,                               \
                                            NSError *_Nullable *_Nullable error) {                 \
    return WRTWaitForEnd(operation, limit, error) ? WRTResultOf(operation, error) : (Result)0;     \
  }                                                                                                \
  WRT_SUPPORT_OVERLOAD Result WRTAwait(id<Operation> _Nullable operation,                          \
                                       NSError *_Nullable *_Nullable error) {                      \
    return WRTAwaitUntil(operation, (NSDate *)0, error);                                           \
  }                                                                                                \
  WRT_SUPPORT_OVERLOAD void WRTThen(id<Operation> _Nullable operation,                             \
                                    void (^then)(Result, NSError *_Nullable)) {                    \
    WRTWhenEnded(operation, ^(id ended, NSError * failure) {                                       \
      NSError *error = failure;                                                                    \
      Result result = ended ? WRTResultOf((id<Operation>)ended, &error) : (Result)0;               \
      then(result, error);                                                                         \
    });                                                                                            \
  }

WRT_FOR_EACH_OPERATION(WRT_SUPPORT_WAITING)
#undef WRT_SUPPORT_WAITING

/// The same for an action, which has no result; NO when it failed.
WRT_SUPPORT_OVERLOAD BOOL WRTResultOf(id<WRTIAsyncActionBridge> _Nullable action,
                                      NSError *_Nullable *_Nullable error) {
  NSError *failure = nil;
  WRTMarkError(&failure);
  [action getResultsWithError:&failure];
  WRTSettleError(&failure);
  if (error)
    *error = failure;
  return !failure;
}
WRT_SUPPORT_OVERLOAD BOOL WRTAwaitUntil(id<WRTIAsyncActionBridge> _Nullable action,
                                        NSDate *_Nullable limit,
                                        NSError *_Nullable *_Nullable error) {
  return WRTWaitForEnd(action, limit, error) && WRTResultOf(action, error);
}
WRT_SUPPORT_OVERLOAD BOOL WRTAwait(id<WRTIAsyncActionBridge> _Nullable action,
                                   NSError *_Nullable *_Nullable error) {
  return WRTAwaitUntil(action, (NSDate *)0, error);
}
WRT_SUPPORT_OVERLOAD void WRTThen(id<WRTIAsyncActionBridge> _Nullable action,
                                  void (^then)(NSError *_Nullable failure)) {
  WRTWhenEnded(action, ^(id _Nullable ended, NSError *_Nullable failure) {
    NSError *error = failure;
    if (ended)
      WRTResultOf((id<WRTIAsyncActionBridge>)ended, &error);
    then(error);
  });
}

/// Calls the block whenever the operation tells how far it is, on the thread on which it works. To
/// be called before waiting. NO with an error when the operation refuses it.
#define WRT_SUPPORT_PROGRESS(Operation, Progress)                                                  \
  WRT_SUPPORT_OVERLOAD BOOL WRTOnProgress(id<Operation> _Nullable operation,                       \
                                          void (^report)(Progress progress),                       \
                                          NSError *_Nullable *_Nullable error) {                   \
    NSError *failure = nil;                                                                        \
    WRTMarkError(&failure);                                                                        \
    [operation                                                                                     \
        setProgressWithHandler:^HRESULT(id<Operation> _Nullable running, Progress progress) {      \
          (void)running;                                                                           \
          report(progress);                                                                        \
          return 0;                                                                                \
        }                                                                                          \
                         error:&failure];                                                          \
    WRTSettleError(&failure);                                                                      \
    if (error)                                                                                     \
      *error = failure;                                                                            \
    return !failure;                                                                               \
  }
WRT_FOR_EACH_PROGRESSING_OPERATION(WRT_SUPPORT_PROGRESS)
#undef WRT_SUPPORT_PROGRESS

#define WRT_SUPPORT_UNREADABLE                                                                     \
  __attribute__((overloadable,                                                                     \
                 unavailable("the result of a proxy class's operation cannot be read")))
#define WRT_SUPPORT_REFUSED(Operation)                                                             \
  WRT_SUPPORT_UNREADABLE id WRTAwait(id<Operation> _Nullable operation,                            \
                                     NSError *_Nullable *_Nullable error);                         \
  WRT_SUPPORT_UNREADABLE id WRTAwaitUntil(id<Operation> _Nullable operation,                       \
                                          NSDate *_Nullable limit,                                 \
                                          NSError *_Nullable *_Nullable error);                    \
  WRT_SUPPORT_UNREADABLE void WRTThen(id<Operation> _Nullable operation, id then);
WRT_FOR_EACH_UNREADABLE_OPERATION(WRT_SUPPORT_REFUSED)
#undef WRT_SUPPORT_REFUSED

WRT_SUPPORT_END
#pragma clang assume_nonnull end

#endif
