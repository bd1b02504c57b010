/// Read-only lists. A member that returns one:
///
///     HRESULT WRT_ABI get_Files(abi::IVectorView__1_WRTStorageFile_P **files) override {
///       // Each is a ComPtr<abi::IStorageFile>.
///       return makeVectorView<types::StorageFile>(files, {file1, file2});
///     }
///
/// A runtime class that is such a list derives from `VectorViewObject`.
#ifndef WRT_COMPONENTS_VECTOR_VIEW_H
#define WRT_COMPONENTS_VECTOR_VIEW_H

#include "platform/linux/components/collections/Iterator.h"
#include "platform/linux/components/generic/InterfaceCast.h"

#include <algorithm>
#include <vector>

namespace wrt::implement {

/// The elements of a list, first to last.
template <class T>
using Items = std::vector<Stored<T>>;

/// The questions that `IVector` and `IVectorView` have in common.
template <class T>
class List {
public:
  explicit List(Items<T> items) : store_(std::make_shared<Store<Items<T>>>(std::move(items))) {}

  HRESULT getAt(uint32_t index, Abi<T> *item) const {
    if (item == nullptr)
      return status::kPointer;
    *item = Abi<T>{};
    return store_->read([&](const Items<T> &items) {
      return index < items.size() ? T::giveOut(items[index], item) : status::kBounds;
    });
  }

  HRESULT copySize(uint32_t *size) const {
    if (size == nullptr)
      return status::kPointer;
    *size = store_->read([](const auto &items) { return static_cast<uint32_t>(items.size()); });
    return status::kOk;
  }

  /// Strings are equal by their text, objects by identity. `*index` is 0 for an absent element.
  HRESULT indexOf(Abi<T> value, uint32_t *index, uint8_t *found) const {
    if (index == nullptr || found == nullptr)
      return status::kPointer;
    *index = 0;
    *found = 0;
    Stored<T> wanted{};
    const HRESULT status = T::store(value, wanted);
    if (status < 0)
      return status;
    const auto find = [&](const Items<T> &items) {
      for (size_t i = 0; i < items.size() && *found == 0; ++i) {
        if (T::equal(items[i], wanted)) {
          *index = static_cast<uint32_t>(i);
          *found = 1;
        }
      }
      return status::kOk;
    };
    // Objects are asked who they are, and may come back to this list while they are.
    if constexpr (requires { typename T::Key; })
      return find(copy());
    else
      return store_->read(find);
  }

  /// From the end there is nothing to read, which is no failure; beyond it is `E_BOUNDS`.
  HRESULT getMany(uint32_t startIndex, uint32_t capacity, Abi<T> *items, uint32_t *actual) const {
    if (actual == nullptr)
      return status::kPointer;
    *actual = 0;
    return store_->read([&](const Items<T> &all) {
      if (startIndex > all.size())
        return status::kBounds;
      auto next = all.begin() + startIndex;
      return giveOutMany<T>(std::min<size_t>(capacity, all.size() - startIndex), items, actual,
                            [&](Abi<T> *place) { return T::giveOut(*next++, place); });
    });
  }

  HRESULT first(IIterator<T> **iterator) const {
    return makeInto<Iterator<T, Items<T>, T::giveOut>>(iterator, store_);
  }

  Items<T> copy() const {
    return store_->read([](const Items<T> &items) { return items; });
  }

  template <class Change>
  HRESULT change(Change change) {
    return store_->change(change);
  }

private:
  std::shared_ptr<Store<Items<T>>> store_;
};

/// A list that never changes; `Others` are more interfaces of a runtime class that is one.
template <class T, class... Others>
class VectorViewObject : public Implements<IVectorView<T>, IIterable<T>, Others...> {
public:
  explicit VectorViewObject(Items<T> items) : list_(std::move(items)) {}

  HRESULT WRT_ABI GetAt(uint32_t index, Abi<T> *item) override { return list_.getAt(index, item); }
  HRESULT WRT_ABI get_Size(uint32_t *size) override { return list_.copySize(size); }
  HRESULT WRT_ABI IndexOf(Abi<T> item, uint32_t *index, uint8_t *found) override {
    return list_.indexOf(item, index, found);
  }
  HRESULT WRT_ABI GetMany(uint32_t startIndex, uint32_t capacity, Abi<T> *items,
                          uint32_t *actual) override {
    return list_.getMany(startIndex, capacity, items, actual);
  }
  HRESULT WRT_ABI First(IIterator<T> **iterator) override { return list_.first(iterator); }

private:
  const List<T> list_;
};

template <class T>
using VectorView = VectorViewObject<T>;

/// A new list with these elements; `*view` is +1.
template <class T, class Declared>
HRESULT makeVectorView(Declared **view, Items<T> items) {
  return handOut<IVectorView<T>>(make<VectorView<T>>(std::move(items)), view);
}

} // namespace wrt::implement

#endif
