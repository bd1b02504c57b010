/// Read-only maps: `makeMapView<String, Inspectable>(&view, {{u"key", value}})`.
#ifndef WRT_COMPONENTS_MAP_VIEW_H
#define WRT_COMPONENTS_MAP_VIEW_H

#include "platform/linux/components/collections/Iterator.h"
#include "platform/linux/components/generic/InterfaceCast.h"

#include <map>

namespace wrt::implement {

/// How a map keeps a key.
template <class K>
struct KeyOf {
  using Type = Stored<K>;
};
template <class K>
  requires requires { typename K::Key; }
struct KeyOf<K> {
  using Type = typename K::Key;
};
template <class K>
using Key = typename KeyOf<K>::Type;

/// The order of a map's keys: strings by their UTF-16 units, objects by identity.
template <class K>
struct KeyOrder {
  bool operator()(const Key<K> &left, const Key<K> &right) const {
    if constexpr (std::same_as<Key<K>, Stored<K>>)
      return K::less(left, right);
    else
      return left < right;
  }
};

/// The keys of a map and their values.
template <class K, class V>
using Entries = std::map<Key<K>, Stored<V>, KeyOrder<K>>;

/// A key and its value, as iterating a map yields them.
template <class K, class V>
class KeyValuePair final : public Implements<IKeyValuePair<K, V>> {
public:
  KeyValuePair(const Stored<K> &key, const Stored<V> &value) : key_(key), value_(value) {}

  HRESULT WRT_ABI get_Key(Abi<K> *key) override {
    return key == nullptr ? status::kPointer : K::giveOut(key_, key);
  }
  HRESULT WRT_ABI get_Value(Abi<V> *value) override {
    return value == nullptr ? status::kPointer : V::giveOut(value_, value);
  }

  static HRESULT giveOut(const typename Entries<K, V>::value_type &entry,
                         IKeyValuePair<K, V> **pair) {
    return makeInto<KeyValuePair>(pair, entry.first, entry.second);
  }

private:
  const Stored<K> key_;
  const Stored<V> value_;
};

/// The questions that `IMap` and `IMapView` have in common.
template <class K, class V>
class Dictionary {
public:
  using Contents = Entries<K, V>;

  explicit Dictionary(Contents entries)
      : store_(std::make_shared<Store<Contents>>(std::move(entries))) {}

  /// An absent key is `E_BOUNDS`.
  HRESULT lookup(Abi<K> key, Abi<V> *value) const {
    if (value == nullptr)
      return status::kPointer;
    *value = Abi<V>{};
    return withKey(key, [&](const Contents &entries, const Key<K> &wanted) {
      const auto found = entries.find(wanted);
      return found == entries.end() ? status::kBounds : V::giveOut(found->second, value);
    });
  }

  HRESULT hasKey(Abi<K> key, uint8_t *found) const {
    if (found == nullptr)
      return status::kPointer;
    *found = 0;
    return withKey(key, [&](const Contents &entries, const Key<K> &wanted) {
      *found = entries.contains(wanted);
      return status::kOk;
    });
  }

  HRESULT copySize(uint32_t *size) const {
    if (size == nullptr)
      return status::kPointer;
    *size = store_->read([](const auto &entries) { return static_cast<uint32_t>(entries.size()); });
    return status::kOk;
  }

  HRESULT first(IIterator<PairOf<K, V>> **iterator) const {
    return makeInto<Iterator<PairOf<K, V>, Contents, KeyValuePair<K, V>::giveOut>>(iterator,
                                                                                   store_);
  }

  Contents copy() const {
    return store_->read([](const Contents &entries) { return entries; });
  }

  template <class Change>
  HRESULT change(Change change) {
    return store_->change(change);
  }

private:
  template <class Use>
  HRESULT withKey(Abi<K> key, Use use) const {
    Stored<K> stored{};
    const HRESULT status = K::store(key, stored);
    if (status < 0)
      return status;
    const Key<K> wanted(std::move(stored));
    return store_->read([&](const Contents &entries) { return use(entries, wanted); });
  }

  std::shared_ptr<Store<Contents>> store_;
};

/// A map that never changes; `Others` are more interfaces of a runtime class that is one.
template <class K, class V, class... Others>
class MapViewObject : public Implements<IMapView<K, V>, IIterable<PairOf<K, V>>, Others...> {
public:
  explicit MapViewObject(Entries<K, V> entries) : entries_(std::move(entries)) {}

  HRESULT WRT_ABI Lookup(Abi<K> key, Abi<V> *value) override { return entries_.lookup(key, value); }
  HRESULT WRT_ABI get_Size(uint32_t *size) override { return entries_.copySize(size); }
  HRESULT WRT_ABI HasKey(Abi<K> key, uint8_t *found) override {
    return entries_.hasKey(key, found);
  }
  /// Halves the map; one of less than two keys is not split, and both halves are null.
  HRESULT WRT_ABI Split(IMapView<K, V> **first, IMapView<K, V> **second) override {
    if (first == nullptr || second == nullptr)
      return status::kPointer;
    *first = *second = nullptr;
    Entries<K, V> upper = entries_.copy();
    if (upper.size() < 2)
      return status::kOk;
    Entries<K, V> lower;
    for (size_t half = upper.size() / 2; lower.size() < half;)
      lower.insert(upper.extract(upper.begin()));
    *first = make<MapViewObject<K, V>>(std::move(lower)).detach();
    *second = make<MapViewObject<K, V>>(std::move(upper)).detach();
    return status::kOk;
  }
  HRESULT WRT_ABI First(IIterator<PairOf<K, V>> **iterator) override {
    return entries_.first(iterator);
  }

private:
  const Dictionary<K, V> entries_;
};

template <class K, class V>
using MapView = MapViewObject<K, V>;

/// A new map with these entries; `*view` is +1.
template <class K, class V, class Declared>
HRESULT makeMapView(Declared **view, Entries<K, V> entries) {
  return handOut<IMapView<K, V>>(make<MapView<K, V>>(std::move(entries)), view);
}

} // namespace wrt::implement

#endif
