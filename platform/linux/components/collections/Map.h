/// Maps that can be changed:
///
///     abi::IMap__2_WRTHSTRING_WRTIInspectable_P *map = nullptr;
///     makeMap<String, Inspectable>(&map, {{u"key", value}});
///
/// A runtime class that is one derives from `MapObject`.
#ifndef WRT_COMPONENTS_MAP_H
#define WRT_COMPONENTS_MAP_H

#include "platform/linux/components/collections/MapView.h"

namespace wrt::implement {

/// A map that can be changed from any thread. `GetView` gives the entries of that moment.
template <class K, class V, class... Others>
class MapObject : public Implements<IMap<K, V>, IIterable<PairOf<K, V>>, Others...> {
public:
  explicit MapObject(Entries<K, V> entries = {}) : entries_(std::move(entries)) {}

  HRESULT WRT_ABI Lookup(Abi<K> key, Abi<V> *value) override { return entries_.lookup(key, value); }
  HRESULT WRT_ABI get_Size(uint32_t *size) override { return entries_.copySize(size); }
  HRESULT WRT_ABI HasKey(Abi<K> key, uint8_t *found) override {
    return entries_.hasKey(key, found);
  }
  HRESULT WRT_ABI GetView(IMapView<K, V> **view) override {
    return makeInto<MapView<K, V>>(view, entries_.copy());
  }
  HRESULT WRT_ABI First(IIterator<PairOf<K, V>> **iterator) override {
    return entries_.first(iterator);
  }

  HRESULT WRT_ABI Insert(Abi<K> key, Abi<V> value, uint8_t *replaced) override {
    if (replaced == nullptr)
      return status::kPointer;
    *replaced = 0;
    Stored<K> storedKey{};
    Stored<V> storedValue{};
    HRESULT status = K::store(key, storedKey);
    if (status >= 0)
      status = V::store(value, storedValue);
    if (status < 0)
      return status;
    Key<K> place(storedKey);
    // A value that is replaced is dropped with `storedValue`, outside of the lock.
    entries_.change([&](Entries<K, V> &entries) {
      const auto [entry, isNew] = entries.try_emplace(std::move(place));
      std::swap(entry->second, storedValue);
      *replaced = !isNew;
      return status::kOk;
    });
    changed(*replaced != 0 ? WRTCollectionChangeItemChanged : WRTCollectionChangeItemInserted,
            storedKey);
    return status::kOk;
  }

  /// An absent key is `E_BOUNDS`.
  HRESULT WRT_ABI Remove(Abi<K> key) override {
    Stored<K> storedKey{};
    HRESULT status = K::store(key, storedKey);
    if (status < 0)
      return status;
    const Key<K> wanted(storedKey);
    typename Entries<K, V>::node_type removed; // dropped outside of the lock
    status = entries_.change([&](Entries<K, V> &entries) {
      removed = entries.extract(wanted);
      return removed.empty() ? status::kBounds : status::kOk;
    });
    if (status >= 0)
      changed(WRTCollectionChangeItemRemoved, storedKey);
    return status;
  }

  HRESULT WRT_ABI Clear() override {
    Entries<K, V> removed; // dropped outside of the lock
    entries_.change([&](Entries<K, V> &entries) {
      std::swap(entries, removed);
      return status::kOk;
    });
    changed(WRTCollectionChangeReset, Stored<K>{});
    return status::kOk;
  }

protected:
  /// The map has changed, by `CollectionChange` `change` at `key`. Called without a lock.
  virtual void changed(int32_t, const Stored<K> &) {}

private:
  Dictionary<K, V> entries_;
};

template <class K, class V>
using Map = MapObject<K, V>;

/// A new map that can be changed, with these entries to begin with; `*map` is +1.
template <class K, class V, class Declared>
HRESULT makeMap(Declared **map, Entries<K, V> entries = {}) {
  return handOut<IMap<K, V>>(make<Map<K, V>>(std::move(entries)), map);
}

} // namespace wrt::implement

#endif
