/// Whether a call reached its object, and whether it would:
///
///     NSString *name = WRTTry([item getNameWithError:&error], &error);
///     if (WRTSupports(item, @protocol(WRTIStorageFile2Bridge))) ...
///
/// A member whose object lacks the interface returns 0 or nil and leaves the error variable as it
/// was. `WRTTry` makes an error of that.
#ifndef WRT_ASKING_H
#define WRT_ASKING_H

#import <WRTObjcBridge/WRTInspectableBridge.h>
#import <WRTSupport/WRTSupportBase.h>

#pragma clang assume_nonnull begin

WRT_EXTERN_C_BEGIN

/// Puts an error that no member reports into the variable; NULL does nothing. Any thread.
WRT_SUPPORT_API void WRTMarkError(NSError *_Nullable *_Nullable error);
/// Makes `E_NOINTERFACE` of a mark that is still in the variable and leaves everything else. Any
/// thread.
WRT_SUPPORT_API void WRTSettleError(NSError *_Nullable *_Nullable error);

/// Whether the object has the interface that `protocol` stands for: a protocol of an interface's
/// bridge, not one of statics or factories. Nothing is logged when it has not. Nil has none. Any
/// thread that may use the object.
WRT_SUPPORT_API BOOL WRTSupports(id<WRTIUnknownBridge> _Nullable object, Protocol *protocol);

WRT_EXTERN_C_END

#pragma clang assume_nonnull end

/// The value of `expression`, calls of members that report to `error` (`&error`, evaluated three
/// times; not NULL). When the last of them did not reach its interface, or went to nil, `error` is
/// `E_NOINTERFACE` afterwards, where it otherwise would be what it was before.
#if defined(__cplusplus)
template <class Settle>
struct WRTSettling {
  Settle settle;
  ~WRTSettling() { settle(); }
};
#define WRTTry(expression, error)                                                                  \
  __extension__({                                                                                  \
    WRTMarkError(error);                                                                           \
    auto wrt_settle = [&] { WRTSettleError(error); };                                              \
    const WRTSettling<decltype(wrt_settle)> wrt_settling{wrt_settle};                              \
    (expression);                                                                                  \
  })
#else
#define WRT_IS_VOID(expression) __builtin_types_compatible_p(__typeof__(expression), void)
#define WRTTry(expression, error)                                                                  \
  __extension__({                                                                                  \
    WRTMarkError(error);                                                                           \
    __auto_type wrt_result =                                                                       \
        __builtin_choose_expr(WRT_IS_VOID(expression), ((void)(expression), 0), (expression));     \
    WRTSettleError(error);                                                                         \
    __builtin_choose_expr(WRT_IS_VOID(expression), (void)wrt_result, wrt_result);                  \
  })
#endif

#endif
