#ifndef WRT_EVENT_SOURCE_H
#define WRT_EVENT_SOURCE_H

#include "platform/linux/implement/ComPtr.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace wrt::implement {

/// A token that no event source of this process has given out before. Tokens start beyond 32 bits,
/// so that a caller who cuts them off is found out.
WRT_DLLEXPORT int64_t nextEventToken();

/// An event of a component: the delegates that subscribed to it. Any thread, and any call from
/// inside a handler, is allowed.
template <class Delegate>
class EventSource {
public:
  /// Subscribes `handler` (borrowed; a reference of its own is kept). Null is `E_INVALIDARG`.
  HRESULT add(Delegate *handler, WRTEventRegistrationToken *token) {
    if (token == nullptr)
      return status::kPointer;
    token->value = 0;
    if (handler == nullptr)
      return status::kInvalidArgument;
    const int64_t value = nextEventToken();
    std::lock_guard lock(mutex_);
    auto changed = copy();
    changed->push_back({value, ComPtr<Delegate>(handler)});
    handlers_ = std::move(changed);
    token->value = value;
    return status::kOk;
  }

  /// Ends a subscription; a token that is not subscribed, or no longer, is ignored.
  HRESULT remove(WRTEventRegistrationToken token) {
    // Dropped outside of the lock, since the last reference to a handler runs code of its owner.
    std::shared_ptr<const Handlers> old;
    std::lock_guard lock(mutex_);
    auto changed = copy();
    if (std::erase_if(*changed, [&](const Handler &h) { return h.token == token.value; }) != 0)
      old = std::exchange(handlers_, std::move(changed));
    return status::kOk;
  }

  /// Calls the handlers that are subscribed now, in the order of their subscription; changes made
  /// meanwhile count from the next time on. A failing handler does not keep the others from being
  /// called; one that answers `RPC_E_DISCONNECTED` is removed. Gives the first failure, or `S_OK`.
  template <class... Arguments>
  HRESULT raise(Arguments... arguments) {
    HRESULT result = status::kOk;
    const auto handlers = snapshot();
    if (handlers == nullptr)
      return result;
    for (const Handler &handler : *handlers) {
      const HRESULT answer = handler.delegate->Invoke(arguments...);
      if (answer < 0 && result >= 0)
        result = answer;
      if (answer == status::kDisconnected)
        remove({handler.token});
    }
    return result;
  }

  /// How many handlers are subscribed.
  size_t count() const {
    const auto handlers = snapshot();
    return handlers == nullptr ? 0 : handlers->size();
  }

private:
  struct Handler {
    int64_t token;
    ComPtr<Delegate> delegate;
  };
  using Handlers = std::vector<Handler>;

  std::shared_ptr<const Handlers> snapshot() const {
    std::lock_guard lock(mutex_);
    return handlers_;
  }
  std::shared_ptr<Handlers> copy() const {
    return handlers_ == nullptr ? std::make_shared<Handlers>()
                                : std::make_shared<Handlers>(*handlers_);
  }

  mutable std::mutex mutex_;
  /// Never changed, only replaced, so that a snapshot costs nothing; null as long as nobody came.
  std::shared_ptr<const Handlers> handlers_;
};

} // namespace wrt::implement

#endif
