/// Maps that tell about their changes: `makeObservableMap<String, Inspectable>(&map)`.
#ifndef WRT_COMPONENTS_OBSERVABLE_MAP_H
#define WRT_COMPONENTS_OBSERVABLE_MAP_H

#include "platform/linux/components/collections/Map.h"
#include "platform/linux/implement/EventSource.h"

namespace wrt::implement {

/// The arguments of one change.
template <class K>
class MapChange final : public Implements<IMapChangedEventArgs<K>> {
public:
  MapChange(int32_t change, const Stored<K> &key) : change_(change), key_(key) {}

  HRESULT WRT_ABI get_CollectionChange(int32_t *change) override {
    if (change == nullptr)
      return status::kPointer;
    *change = change_;
    return status::kOk;
  }
  HRESULT WRT_ABI get_Key(Abi<K> *key) override {
    return key == nullptr ? status::kPointer : K::giveOut(key_, key);
  }

private:
  const int32_t change_;
  const Stored<K> key_;
};

/// A map that tells about each change, on the thread that made it and after it was made.
template <class K, class V, class... Others>
class ObservableMapObject : public MapObject<K, V, IObservableMap<K, V>, Others...> {
public:
  using MapObject<K, V, IObservableMap<K, V>, Others...>::MapObject;

  HRESULT WRT_ABI add_MapChanged(MapChangedEventHandler<K, V> *handler,
                                 WRTEventRegistrationToken *token) override {
    return mapChanged_.add(handler, token);
  }
  HRESULT WRT_ABI remove_MapChanged(WRTEventRegistrationToken token) override {
    return mapChanged_.remove(token);
  }

protected:
  void changed(int32_t change, const Stored<K> &key) override {
    const auto event = make<MapChange<K>>(change, key);
    mapChanged_.raise(static_cast<IObservableMap<K, V> *>(this),
                      static_cast<IMapChangedEventArgs<K> *>(event.get()));
  }

private:
  EventSource<MapChangedEventHandler<K, V>> mapChanged_;
};

template <class K, class V>
using ObservableMap = ObservableMapObject<K, V>;

/// A new map that tells about its changes, with these entries to begin with; `*map` is +1. The same
/// object is the `IMap<K, V>` that changes it.
template <class K, class V, class Declared>
HRESULT makeObservableMap(Declared **map, Entries<K, V> entries = {}) {
  return handOut<IObservableMap<K, V>>(make<ObservableMap<K, V>>(std::move(entries)), map);
}

} // namespace wrt::implement

#endif
