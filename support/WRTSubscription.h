/// Handlers of events that are removed when nobody holds their subscription any more:
///
///     WRTSubscription *watching = [WRTSubscribe(folders, VectorChanged, Handler, &error,
///                                  ^HRESULT(id sender, id change) { ...; return 0; }) retain];
#ifndef WRT_SUBSCRIPTION_H
#define WRT_SUBSCRIPTION_H

#import <WRTObjcBridge/WRTInspectableBridge.h>
#import <WRTSupport/WRTAsking.h>

#pragma clang assume_nonnull begin

/// A handler that is set. The subscription holds the sender; the sender holds the handler and
/// nothing of the subscription. What the handler captures lives until it is removed: a handler that
/// captures the owner of its own subscription keeps it, and should use the sender that it is given
/// instead. Any thread that may use the sender.
WRT_SUPPORT_API
@interface WRTSubscription : NSObject {
@private
  void *_sender; // +1; null once it is cancelled
  SEL _remove;
  WRTEventRegistrationToken _token;
}
/// Removes the handler, once; also from within the handler. It may still be running on another
/// thread when this returns. Happens by itself when the subscription is deallocated.
- (void)cancel;
/// Whether the handler is still set.
@property (readonly) BOOL isActive;
@end

WRT_EXTERN_C_BEGIN

/// A subscription, autoreleased, to what was added with `token` and is removed by the sender's
/// method `remove`; nil when there was a failure, which goes to `error`.
WRT_SUPPORT_API WRTSubscription *_Nullable WRTSubscriptionOf(id _Nullable sender,
                                                             WRTEventRegistrationToken token,
                                                             SEL remove, NSError *_Nullable failure,
                                                             NSError *_Nullable *_Nullable error);

WRT_EXTERN_C_END

#pragma clang assume_nonnull end

#if defined(__cplusplus)
#define WRT_SUPPORT_AUTO auto
#else
#define WRT_SUPPORT_AUTO __auto_type
#endif

/// Sets a handler for the sender's event: the members `add<event>With<parameter>:error:`, of whose
/// type the block (the last argument) must be, and `remove<event>WithToken:error:`. The sender of
/// an event of a class is `[TheClass class]`. A `WRTSubscription *`, autoreleased: retain it for as
/// long as the handler shall be called. Nil and an error in `place` (`&error`, NULL allowed) when
/// it cannot be set.
#define WRTSubscribe(sender, event, parameter, place, ...)                                         \
  __extension__({                                                                                  \
    WRT_SUPPORT_AUTO wrt_sender = (sender);                                                        \
    NSError *wrt_failure = nil;                                                                    \
    WRTMarkError(&wrt_failure);                                                                    \
    const WRTEventRegistrationToken wrt_token =                                                    \
        [wrt_sender add##event##With##parameter:(__VA_ARGS__) error:&wrt_failure];                 \
    WRTSettleError(&wrt_failure);                                                                  \
    WRTSubscriptionOf(wrt_sender, wrt_token, @selector(remove##event##WithToken:error:),           \
                      wrt_failure, (place));                                                       \
  })

#endif
