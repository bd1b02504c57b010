#ifndef WRT_COMPONENTS_ASYNC_STATE_H
#define WRT_COMPONENTS_ASYNC_STATE_H

#include "platform/linux/components/async/AsyncFamilies.h"
#include "platform/linux/implement/ComPtr.h"

#include <mutex>
#include <stop_token>
#include <utility>

namespace wrt::implement {

/// The life of an operation, whatever its result: it starts, ends once (completed, failed, or
/// canceled on request), tells its completion handler once, and may then be closed. After that
/// every question fails with `E_ILLEGAL_METHOD_CALL`. Any thread.
class WRT_DLLEXPORT AsyncState {
public:
  /// Any operation's completion handler: they all have this one function.
  using Handler = CompletedHandler<void, void>;

  AsyncState();

  /// The members of `IAsyncInfo`. A canceled operation has no error code.
  HRESULT copyId(uint32_t *id) const;
  HRESULT copyStatus(int32_t *status) const;
  HRESULT copyErrorCode(HRESULT *errorCode) const;
  /// Asks the work to stop; nothing happens once the operation has ended. The status is `Canceled`
  /// from now on, the handler is called when the work has ended.
  HRESULT cancel();
  /// Refused with `E_ILLEGAL_STATE_CHANGE` while the work runs, canceled or not; may be repeated.
  HRESULT close();

  /// Sets the handler (borrowed, null allowed), which is called at once if the work has ended
  /// already. Only once: `E_ILLEGAL_DELEGATE_ASSIGNMENT` after that.
  HRESULT setHandler(void *operation, Handler *handler);
  /// `*handler` is +1; null before one is set and after it was called.
  HRESULT copyHandler(Handler **handler) const;

  /// Calls `read` if there is a result: the operation has completed and is not closed. Otherwise
  /// the operation's failure, `E_ABORT` after cancellation, `E_ILLEGAL_METHOD_CALL` before the end.
  template <class Read>
  HRESULT withResult(Read read) const {
    std::lock_guard lock(mutex_);
    const HRESULT status = resultStatus();
    return status < 0 ? status : read();
  }
  /// Calls `change` with whether the operation still runs, unless it is closed.
  template <class Change>
  HRESULT ifOpen(Change change) const {
    std::lock_guard lock(mutex_);
    return closed_ ? status::kIllegalMethodCall : change(status_ == WRTAsyncStatusStarted);
  }

  /// The same, closed or not.
  template <class Change>
  void exclusively(Change change) {
    std::lock_guard lock(mutex_);
    change(status_ == WRTAsyncStatusStarted);
  }

  /// The work ended: `publish` puts its result into place if the operation has completed by that.
  /// Then calls the handler.
  template <class Publish>
  void finish(void *operation, HRESULT outcome, Publish publish) {
    ComPtr<Handler> handler;
    int32_t status = WRTAsyncStatusStarted;
    {
      std::lock_guard lock(mutex_);
      if (end(outcome))
        publish();
      status = status_;
      handler = takeHandler();
    }
    tell(operation, handler, status);
  }

  std::stop_token token() const { return stop_.get_token(); }

private:
  HRESULT resultStatus() const;
  bool end(HRESULT outcome);
  ComPtr<Handler> takeHandler();
  static void tell(void *operation, const ComPtr<Handler> &handler, int32_t status);

  mutable std::mutex mutex_;
  const uint32_t id_;
  int32_t status_ = WRTAsyncStatusStarted;
  HRESULT errorCode_ = status::kOk;
  bool ended_ = false; ///< the work has; from then on the handler may be called
  bool closed_ = false;
  bool handlerSet_ = false;
  ComPtr<Handler> handler_; ///< until it is called
  std::stop_source stop_;
};

} // namespace wrt::implement

#endif
