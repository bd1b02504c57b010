/// Lists that can be changed:
///
///     abi::IVector__1_WRTHSTRING *vector = nullptr;
///     makeVector<String>(&vector, {u"one", u"two"});
///
/// A component that keeps a list and hands it out has a `ComPtr<Vector<String>>`; a runtime class
/// that is one derives from `VectorObject`.
#ifndef WRT_COMPONENTS_VECTOR_H
#define WRT_COMPONENTS_VECTOR_H

#include "platform/linux/components/collections/VectorView.h"

namespace wrt::implement {

/// A list that can be changed from any thread. `GetView` gives the elements of that moment.
template <class T, class... Others>
class VectorObject : public Implements<IVector<T>, IIterable<T>, Others...> {
public:
  explicit VectorObject(Items<T> items = {}) : list_(std::move(items)) {}

  HRESULT WRT_ABI GetAt(uint32_t index, Abi<T> *item) override { return list_.getAt(index, item); }
  HRESULT WRT_ABI get_Size(uint32_t *size) override { return list_.copySize(size); }
  HRESULT WRT_ABI GetView(IVectorView<T> **view) override {
    return makeInto<VectorView<T>>(view, list_.copy());
  }
  HRESULT WRT_ABI IndexOf(Abi<T> value, uint32_t *index, uint8_t *found) override {
    return list_.indexOf(value, index, found);
  }
  HRESULT WRT_ABI GetMany(uint32_t startIndex, uint32_t capacity, Abi<T> *items,
                          uint32_t *actual) override {
    return list_.getMany(startIndex, capacity, items, actual);
  }
  HRESULT WRT_ABI First(IIterator<T> **iterator) override { return list_.first(iterator); }

  HRESULT WRT_ABI SetAt(uint32_t index, Abi<T> item) override {
    return place(WRTCollectionChangeItemChanged, item,
                 [&](Items<T> &items, Stored<T> &fresh) -> int64_t {
                   if (index >= items.size())
                     return kNowhere;
                   std::swap(items[index], fresh);
                   return index;
                 });
  }

  HRESULT WRT_ABI InsertAt(uint32_t index, Abi<T> item) override {
    return place(WRTCollectionChangeItemInserted, item,
                 [&](Items<T> &items, Stored<T> &fresh) -> int64_t {
                   if (index > items.size())
                     return kNowhere;
                   items.insert(items.begin() + index, std::move(fresh));
                   return index;
                 });
  }

  HRESULT WRT_ABI Append(Abi<T> item) override {
    return place(WRTCollectionChangeItemInserted, item,
                 [&](Items<T> &items, Stored<T> &fresh) -> int64_t {
                   items.push_back(std::move(fresh));
                   return static_cast<int64_t>(items.size()) - 1;
                 });
  }

  HRESULT WRT_ABI RemoveAt(uint32_t index) override {
    return remove([&](const Items<T> &) { return index; });
  }

  HRESULT WRT_ABI RemoveAtEnd() override {
    return remove([](const Items<T> &items) { return items.size() - 1; });
  }

  HRESULT WRT_ABI Clear() override { return replace({}); }

  /// All or nothing: when an element cannot be kept, the list stays as it was.
  HRESULT WRT_ABI ReplaceAll(uint32_t count, Abi<T> *values) override {
    if (values == nullptr && count != 0)
      return status::kPointer;
    Items<T> fresh(count);
    for (uint32_t i = 0; i < count; ++i) {
      const HRESULT status = T::store(values[i], fresh[i]);
      if (status < 0)
        return status;
    }
    return replace(std::move(fresh));
  }

protected:
  /// The list has changed, by `CollectionChange` `change` at `index`. Called without a lock.
  virtual void changed(int32_t, uint32_t) {}

private:
  static constexpr int64_t kNowhere = -1;

  /// Changes the list by one element: `change` answers the index, or `kNowhere`. What goes out of
  /// the list is dropped with `element`, outside of the lock.
  template <class Change>
  HRESULT changeOne(int32_t kind, Stored<T> element, Change change) {
    int64_t index = kNowhere;
    const HRESULT status = list_.change([&](Items<T> &items) {
      index = change(items, element);
      return index == kNowhere ? status::kBounds : status::kOk;
    });
    if (status >= 0)
      changed(kind, static_cast<uint32_t>(index));
    return status;
  }

  template <class Change>
  HRESULT place(int32_t kind, Abi<T> item, Change change) {
    Stored<T> element{};
    const HRESULT status = T::store(item, element);
    return status < 0 ? status : changeOne(kind, std::move(element), change);
  }

  /// Removes the element at the index that `where` answers.
  template <class Where>
  HRESULT remove(Where where) {
    return changeOne(WRTCollectionChangeItemRemoved, {},
                     [&](Items<T> &items, Stored<T> &removed) -> int64_t {
                       const size_t index = where(items);
                       if (index >= items.size())
                         return kNowhere;
                       removed = std::move(items[index]);
                       items.erase(items.begin() + static_cast<int64_t>(index));
                       return static_cast<int64_t>(index);
                     });
  }

  /// Makes `all` the elements; the old ones are dropped outside of the lock.
  HRESULT replace(Items<T> all) {
    list_.change([&](Items<T> &items) {
      std::swap(items, all);
      return status::kOk;
    });
    changed(WRTCollectionChangeReset, 0);
    return status::kOk;
  }

  List<T> list_;
};

template <class T>
using Vector = VectorObject<T>;

/// A new list that can be changed, with these elements to begin with; `*vector` is +1.
template <class T, class Declared>
HRESULT makeVector(Declared **vector, Items<T> items = {}) {
  return handOut<IVector<T>>(make<Vector<T>>(std::move(items)), vector);
}

} // namespace wrt::implement

#endif
