/// Back to a window's thread, through its dispatcher:
///
///     WRTThenOn(dispatcher, operation, ^(WRTStorageFileBridge *file, NSError *failure) { ... });
///     WRTSubscribe(folders, VectorChanged, Handler, &error, WRTOn(dispatcher, ^HRESULT(id s, id c)
///     { ... }));
///
/// The blocks run on the dispatcher's thread, with normal priority, one after the other. That
/// thread must never wait (`WRTAwait`): while it does, nothing that is meant for it runs.
#ifndef WRT_DISPATCHING_H
#define WRT_DISPATCHING_H

#import <WRTObjcBridge/Windows.UI.Core.h>
#import <WRTSupport/WRTSubscription.h>
#import <WRTSupport/WRTWaiting.h>

#pragma clang assume_nonnull begin
WRT_SUPPORT_BEGIN

WRT_EXTERN_C_BEGIN

/// Runs the block on the dispatcher's thread, later. NO with an error when the dispatcher refuses
/// it or is nil (`E_POINTER`); the block is not run then.
WRT_SUPPORT_API BOOL WRTRunOn(id<WRTICoreDispatcherBridge> _Nullable dispatcher,
                              void (^block)(void), NSError *_Nullable *_Nullable error);
/// As `WRTWhenEnded`, but on the dispatcher's thread. When the dispatcher refuses, `then` gets nil
/// and the dispatcher's failure on the thread on which the operation ended.
WRT_SUPPORT_API void WRTWhenEndedOn(id<WRTICoreDispatcherBridge> _Nullable dispatcher,
                                    id _Nullable operation,
                                    void (^then)(id _Nullable ended, NSError *_Nullable failure));
/// A handler of two objects, autoreleased, that runs `handler` on the dispatcher's thread and does
/// not wait for it; what that returns is lost. It answers the dispatcher's failure when it refuses.
WRT_SUPPORT_API id WRTHandlerOn(id<WRTICoreDispatcherBridge> _Nullable dispatcher, id handler);

WRT_EXTERN_C_END

/// As `WRTThen`, but the block runs on the dispatcher's thread. When the dispatcher refuses it (its
/// window is gone), it gets the dispatcher's failure on the thread on which the operation ended.
#define WRT_SUPPORT_DISPATCHING(Operation, Result)                                                 \
  WRT_SUPPORT_OVERLOAD void WRTThenOn(id<WRTICoreDispatcherBridge> _Nullable dispatcher,           \
                                      id<Operation> _Nullable operation,                           \
                                      void (^then)(Result, NSError *_Nullable)) {                  \
    WRTWhenEndedOn(dispatcher, operation, ^(id _Nullable ended, NSError *_Nullable failure) {      \
      NSError *error = failure;                                                                    \
      Result result = ended ? WRTResultOf((id<Operation>)ended, &error) : (Result)0;               \
      then(result, error);                                                                         \
    });                                                                                            \
  }

WRT_FOR_EACH_OPERATION(WRT_SUPPORT_DISPATCHING)
#undef WRT_SUPPORT_DISPATCHING

WRT_SUPPORT_OVERLOAD void WRTThenOn(id<WRTICoreDispatcherBridge> _Nullable dispatcher,
                                    id<WRTIAsyncActionBridge> _Nullable action,
                                    void (^then)(NSError *_Nullable failure)) {
  WRTWhenEndedOn(dispatcher, action, ^(id _Nullable ended, NSError *_Nullable failure) {
    NSError *error = failure;
    if (ended)
      WRTResultOf((id<WRTIAsyncActionBridge>)ended, &error);
    then(error);
  });
}

#define WRT_SUPPORT_REFUSED(Operation)                                                             \
  WRT_SUPPORT_UNREADABLE void WRTThenOn(id<WRTICoreDispatcherBridge> _Nullable dispatcher,         \
                                        id<Operation> _Nullable operation, id then);
WRT_FOR_EACH_UNREADABLE_OPERATION(WRT_SUPPORT_REFUSED)
#undef WRT_SUPPORT_REFUSED

WRT_SUPPORT_END
#pragma clang assume_nonnull end

/// A handler of the same type as the block (the last argument), which must take two objects, that
/// runs it on the dispatcher's thread.
#define WRTOn(dispatcher, ...)                                                                     \
  __extension__({                                                                                  \
    WRT_SUPPORT_AUTO wrt_handler = (__VA_ARGS__);                                                  \
    (void)sizeof(wrt_handler((id)0, (id)0));                                                       \
    (__typeof__(wrt_handler))WRTHandlerOn((dispatcher), wrt_handler);                              \
  })

#endif
