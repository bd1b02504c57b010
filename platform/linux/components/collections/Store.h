#ifndef WRT_COMPONENTS_STORE_H
#define WRT_COMPONENTS_STORE_H

#include "platform/linux/components/collections/GiveOut.h"

#include <cstdint>
#include <mutex>
#include <utility>

namespace wrt::implement {

/// What a collection keeps: a standard container and how often it has changed. Shared by the
/// collection, which may change it, and its iterators. Any thread; functions that are passed in run
/// under the lock and must not drop anybody's last reference.
template <class Items>
class Store {
public:
  /// A place in the container, good until the next change. Guarded by the store's lock.
  class Position {
    friend Store;
    uint64_t version = 0;
    typename Items::const_iterator item;
  };

  explicit Store(Items items = {}) : items_(std::move(items)) {}
  Store(const Store &) = delete;
  Store &operator=(const Store &) = delete;

  /// Gives what `use` answers for the container.
  template <class Use>
  auto read(Use use) const {
    std::lock_guard lock(mutex_);
    return use(items_);
  }

  /// Gives the status that `change` answers for the container; a negative one promises that nothing
  /// has changed.
  template <class Change>
  HRESULT change(Change change) {
    std::lock_guard lock(mutex_);
    const HRESULT status = change(items_);
    if (status >= 0)
      ++version_;
    return status;
  }

  Position begin() const {
    std::lock_guard lock(mutex_);
    Position position;
    position.version = version_;
    position.item = items_.begin();
    return position;
  }

  /// Gives what `use` answers for the place, which it may move, and the end; `E_CHANGED_STATE` once
  /// the container has changed.
  template <class Use>
  HRESULT at(Position &position, Use use) const {
    std::lock_guard lock(mutex_);
    if (position.version != version_)
      return status::kChangedState;
    return use(position.item, items_.end());
  }

private:
  mutable std::mutex mutex_;
  Items items_;
  uint64_t version_ = 0;
};

} // namespace wrt::implement

#endif
