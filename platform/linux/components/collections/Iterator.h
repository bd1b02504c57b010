#ifndef WRT_COMPONENTS_ITERATOR_H
#define WRT_COMPONENTS_ITERATOR_H

#include "platform/linux/components/collections/GiveOut.h"
#include "platform/linux/components/collections/Store.h"
#include "platform/linux/implement/Implements.h"

#include <iterator>
#include <memory>

namespace wrt::implement {

/// An iterator over what a collection keeps, from the first element on. `giveOut` answers an
/// element as `T::giveOut` does. When the collection has changed since, every question is
/// `E_CHANGED_STATE`. Any thread.
template <class T, class Items, auto giveOut>
class Iterator final : public Implements<IIterator<T>> {
public:
  explicit Iterator(std::shared_ptr<const Store<Items>> store)
      : store_(std::move(store)), position_(store_->begin()) {}

  HRESULT WRT_ABI get_Current(Abi<T> *current) override {
    if (current == nullptr)
      return status::kPointer;
    *current = Abi<T>{};
    return store_->at(position_, [&](auto &item, auto end) {
      return item == end ? status::kBounds : giveOut(*item, current);
    });
  }

  HRESULT WRT_ABI get_HasCurrent(uint8_t *hasCurrent) override {
    return move(hasCurrent, [](auto &, auto) {});
  }

  /// At the end it stays there.
  HRESULT WRT_ABI MoveNext(uint8_t *hasCurrent) override {
    return move(hasCurrent, [](auto &item, auto end) {
      if (item != end)
        ++item;
    });
  }

  HRESULT WRT_ABI GetMany(uint32_t capacity, Abi<T> *items, uint32_t *actual) override {
    return store_->at(position_, [&](auto &item, auto end) {
      auto next = item;
      const auto left = static_cast<size_t>(std::distance(item, end));
      const HRESULT status = giveOutMany<T>(std::min<size_t>(capacity, left), items, actual,
                                            [&](Abi<T> *place) { return giveOut(*next++, place); });
      if (status >= 0)
        item = next;
      return status;
    });
  }

private:
  template <class Step>
  HRESULT move(uint8_t *hasCurrent, Step step) {
    if (hasCurrent == nullptr)
      return status::kPointer;
    *hasCurrent = 0;
    return store_->at(position_, [&](auto &item, auto end) {
      step(item, end);
      *hasCurrent = item != end;
      return status::kOk;
    });
  }

  const std::shared_ptr<const Store<Items>> store_;
  typename Store<Items>::Position position_;
};

} // namespace wrt::implement

#endif
