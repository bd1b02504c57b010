#include "support/implement/Failure.h"
#include "support/implement/Implemented.h"
#include "support/implement/Sequences.h"

namespace wrt::support {

namespace {

class Pair final : public Implemented<PairTable> {
public:
  Pair(const Collection &collection, void *key, void *value)
      : Implemented(collection.pair), kind_(collection.value.kind), key_(key), value_(value) {}
  ~Pair() override {
    disposeWord(ElementKind::String, key_);
    disposeWord(kind_, value_);
  }

  HRESULT WRT_ABI get_Key(void *key) override {
    return key ? copyWord(ElementKind::String, key_, static_cast<void **>(key)) : status::kPointer;
  }
  HRESULT WRT_ABI get_Value(void *value) override {
    return value ? copyWord(kind_, value_, static_cast<void **>(value)) : status::kPointer;
  }

private:
  const ElementKind kind_;
  void *const key_;
  void *const value_;
};

/// What maps and their views have in common: a list of pairs, all of them ours.
class Entries {
public:
  Entries(const Collection &collection, ElementList *list) : collection_(collection), list_(list) {}
  ~Entries() { list_->release(); }

  HRESULT first(IteratorTable<void *> **iterator) {
    if (!iterator)
      return status::kPointer;
    list_->retain();
    return answer(makeIterator(collection_, list_), iterator);
  }
  HRESULT size(uint32_t *size) { return list_->getSize(size); }
  HRESULT hasKey(HSTRING key, uint8_t *found) {
    uint32_t index = 0;
    return found ? locate(key, &index, found) : status::kPointer;
  }
  /// An absent key is `E_BOUNDS`.
  HRESULT lookup(HSTRING key, void **value) {
    if (!value)
      return status::kPointer;
    *value = nullptr;
    uint32_t index = 0;
    uint8_t found = 0;
    HRESULT status = locate(key, &index, &found);
    if (status < 0 || !found)
      return status < 0 ? status : status::kBounds;
    void *pair = nullptr;
    status = list_->getAt(index, &pair);
    if (status >= 0) {
      status = static_cast<PairTable *>(static_cast<abi::IInspectable *>(pair))->get_Value(value);
      WRTIUnknownRelease(pair);
    }
    return status;
  }

protected:
  HRESULT locate(HSTRING key, uint32_t *index, uint8_t *found) {
    *found = 0;
    uint32_t size = 0;
    list_->getSize(&size);
    for (*index = 0; *index < size; ++*index) {
      void *pair = nullptr;
      void *own = nullptr;
      HRESULT status = list_->getAt(*index, &pair);
      if (status < 0)
        return status;
      status = static_cast<PairTable *>(static_cast<abi::IInspectable *>(pair))->get_Key(&own);
      WRTIUnknownRelease(pair);
      if (status < 0)
        return status;
      *found = equalWords(ElementKind::String, own, key);
      WRTHSTRINGRelease(static_cast<HSTRING>(own));
      if (*found)
        break;
    }
    return status::kOk;
  }

  const Collection &collection_;
  ElementList *const list_;
};

using MapViewBase = MapViewTable<HSTRING, void *>;
using MapBase = MapTable<HSTRING, void *>;

class MapView final : public Implemented<MapViewBase, IterableTable<void *>>, Entries {
public:
  /// An iterable of pairs is no map view to others.
  MapView(const Collection &collection, ElementList *list)
      : Implemented(collection.family == Family::Iterable ? collection.iterable : collection.view,
                    collection.iterable),
        Entries(collection, list) {}

  HRESULT WRT_ABI Lookup(HSTRING key, void **value) override { return lookup(key, value); }
  HRESULT WRT_ABI get_Size(uint32_t *size) override { return Entries::size(size); }
  HRESULT WRT_ABI HasKey(HSTRING key, uint8_t *found) override { return hasKey(key, found); }
  /// Not split: both halves are null, as WinRT allows.
  HRESULT WRT_ABI Split(MapViewBase **left, MapViewBase **right) override {
    if (!left || !right)
      return status::kPointer;
    *left = *right = nullptr;
    return status::kOk;
  }
  HRESULT WRT_ABI First(IteratorTable<void *> **iterator) override { return first(iterator); }
};

class Map final : public Implemented<MapBase, IterableTable<void *>>, Entries {
public:
  Map(const Collection &collection, ElementList *list)
      : Implemented(collection.iid, collection.iterable), Entries(collection, list) {}

  HRESULT WRT_ABI Lookup(HSTRING key, void **value) override { return lookup(key, value); }
  HRESULT WRT_ABI get_Size(uint32_t *size) override { return Entries::size(size); }
  HRESULT WRT_ABI HasKey(HSTRING key, uint8_t *found) override { return hasKey(key, found); }
  HRESULT WRT_ABI GetView(MapViewBase **view) override {
    if (!view)
      return status::kPointer;
    *view = nullptr;
    ElementList *copy = list_->copy();
    return copy ? answer(withList<MapView>(collection_, copy), view) : status::kOutOfMemory;
  }
  HRESULT WRT_ABI Insert(HSTRING key, void *value, uint8_t *replaced) override {
    if (!replaced)
      return status::kPointer;
    const ExclusiveChange exclusive(lock_);
    uint32_t index = 0;
    HRESULT status = locate(key, &index, replaced);
    void *ownKey = nullptr;
    void *ownValue = nullptr;
    if (status >= 0)
      status = copyWord(ElementKind::String, key, &ownKey);
    if (status >= 0)
      status = copyWord(collection_.value.kind, value, &ownValue);
    if (status < 0) {
      disposeWord(ElementKind::String, ownKey);
      return status;
    }
    abi::IInspectable *pair = makePair(collection_, ownKey, ownValue);
    if (!pair)
      return status::kOutOfMemory;
    status = *replaced ? list_->setAt(index, pair) : list_->append(pair);
    pair->Release();
    return status;
  }
  /// An absent key is `E_BOUNDS`.
  HRESULT WRT_ABI Remove(HSTRING key) override {
    const ExclusiveChange exclusive(lock_);
    uint32_t index = 0;
    uint8_t found = 0;
    const HRESULT status = locate(key, &index, &found);
    return status < 0 ? status : found ? list_->removeAt(index) : status::kBounds;
  }
  HRESULT WRT_ABI Clear() override {
    const ExclusiveChange exclusive(lock_);
    return list_->replaceAll(0, nullptr);
  }
  HRESULT WRT_ABI First(IteratorTable<void *> **iterator) override { return first(iterator); }

private:
  ~Map() override { [lock_ release]; }

  /// Changes take turns: where a key stands must hold until it is changed.
  class ExclusiveChange {
  public:
    explicit ExclusiveChange(NSLock *lock) : lock_(lock) { [lock_ lock]; }
    ExclusiveChange(const ExclusiveChange &) = delete;
    ExclusiveChange &operator=(const ExclusiveChange &) = delete;
    ~ExclusiveChange() { [lock_ unlock]; }

  private:
    NSLock *lock_;
  };

  NSLock *const lock_ = [[NSLock alloc] init];
};

} // namespace

abi::IInspectable *makePair(const Collection &collection, void *key, void *value) {
  auto *pair = new Pair(collection, key, value);
  if (!pair) {
    disposeWord(ElementKind::String, key);
    disposeWord(collection.value.kind, value);
  }
  return pair;
}

abi::IInspectable *makeMap(const Collection &collection, ElementList *list) {
  return static_cast<MapBase *>(withList<Map>(collection, list));
}

abi::IInspectable *makeMapView(const Collection &collection, ElementList *list) {
  return static_cast<MapViewBase *>(withList<MapView>(collection, list));
}

} // namespace wrt::support
