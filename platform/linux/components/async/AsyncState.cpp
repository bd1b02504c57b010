#include "platform/linux/components/async/AsyncState.h"

#include <atomic>

namespace wrt::implement {
namespace {

uint32_t nextId() {
  static constinit std::atomic<uint32_t> next{1};
  return next.fetch_add(1, std::memory_order_relaxed);
}

/// A getter: fails for a closed operation.
template <class T>
HRESULT answer(bool closed, const T &value, T *out) {
  if (out == nullptr)
    return status::kPointer;
  *out = T{};
  if (closed)
    return status::kIllegalMethodCall;
  *out = value;
  return status::kOk;
}

} // namespace

AsyncState::AsyncState() : id_(nextId()) {}

HRESULT AsyncState::copyId(uint32_t *id) const {
  std::lock_guard lock(mutex_);
  return answer(closed_, id_, id);
}

HRESULT AsyncState::copyStatus(int32_t *status) const {
  std::lock_guard lock(mutex_);
  return answer(closed_, status_, status);
}

HRESULT AsyncState::copyErrorCode(HRESULT *errorCode) const {
  std::lock_guard lock(mutex_);
  return answer(closed_, errorCode_, errorCode);
}

HRESULT AsyncState::cancel() {
  {
    std::lock_guard lock(mutex_);
    if (closed_)
      return status::kIllegalMethodCall;
    if (status_ != WRTAsyncStatusStarted)
      return status::kOk;
    status_ = WRTAsyncStatusCanceled;
  }
  // Runs the work's own callbacks, which may do anything.
  stop_.request_stop();
  return status::kOk;
}

HRESULT AsyncState::close() {
  ComPtr<Handler> handler; // dropped outside of the lock
  std::lock_guard lock(mutex_);
  if (!ended_)
    return status::kIllegalStateChange;
  closed_ = true;
  handler = std::move(handler_);
  return status::kOk;
}

HRESULT AsyncState::setHandler(void *operation, Handler *handler) {
  // Whoever could not make one must not wait for it to be called.
  if (handler == nullptr)
    return status::kPointer;
  ComPtr<Handler> now;
  int32_t status = WRTAsyncStatusStarted;
  {
    std::lock_guard lock(mutex_);
    if (closed_)
      return status::kIllegalMethodCall;
    if (handlerSet_)
      return status::kIllegalDelegateAssignment;
    handlerSet_ = true;
    handler_ = ComPtr<Handler>(handler);
    status = status_;
    if (ended_)
      now = takeHandler();
  }
  tell(operation, now, status);
  return status::kOk;
}

HRESULT AsyncState::copyHandler(Handler **handler) const {
  if (handler == nullptr)
    return status::kPointer;
  *handler = nullptr;
  std::lock_guard lock(mutex_);
  return closed_ ? status::kIllegalMethodCall : handler_.copyTo(handler);
}

HRESULT AsyncState::resultStatus() const {
  if (closed_ || status_ == WRTAsyncStatusStarted)
    return status::kIllegalMethodCall;
  return status_ == WRTAsyncStatusCanceled ? status::kAbort : errorCode_;
}

bool AsyncState::end(HRESULT outcome) {
  ended_ = true;
  if (status_ != WRTAsyncStatusStarted)
    return false;
  status_ = outcome < 0 ? WRTAsyncStatusError : WRTAsyncStatusCompleted;
  errorCode_ = outcome < 0 ? outcome : status::kOk;
  return outcome >= 0;
}

ComPtr<AsyncState::Handler> AsyncState::takeHandler() { return std::exchange(handler_, nullptr); }

void AsyncState::tell(void *operation, const ComPtr<Handler> &handler, int32_t status) {
  // What a completion handler answers concerns nobody.
  if (handler)
    handler->Invoke(static_cast<abi::IAsyncAction *>(operation), status);
}

} // namespace wrt::implement
