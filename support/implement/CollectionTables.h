/// The function tables of collections whose elements cross as words of type `T`: handles and
/// references as `void *`, numbers as themselves (Windows 10 SDK 10.0.16299.0,
/// windows.foundation.collections.idl).
#ifndef WRT_SUPPORT_COLLECTION_TABLES_H
#define WRT_SUPPORT_COLLECTION_TABLES_H

#include <WRTAbi.h>

namespace wrt::support {

template <class T>
struct IteratorTable : abi::IInspectable {
  virtual HRESULT WRT_ABI get_Current(T *current) = 0;
  virtual HRESULT WRT_ABI get_HasCurrent(uint8_t *hasCurrent) = 0;
  virtual HRESULT WRT_ABI MoveNext(uint8_t *hasCurrent) = 0;
  virtual HRESULT WRT_ABI GetMany(uint32_t capacity, T *items, uint32_t *actual) = 0;

protected:
  ~IteratorTable() = default;
};

template <class T>
struct IterableTable : abi::IInspectable {
  virtual HRESULT WRT_ABI First(IteratorTable<T> **iterator) = 0;

protected:
  ~IterableTable() = default;
};

template <class T>
struct VectorViewTable : abi::IInspectable {
  virtual HRESULT WRT_ABI GetAt(uint32_t index, T *item) = 0;
  virtual HRESULT WRT_ABI get_Size(uint32_t *size) = 0;
  virtual HRESULT WRT_ABI IndexOf(T item, uint32_t *index, uint8_t *found) = 0;
  virtual HRESULT WRT_ABI GetMany(uint32_t start, uint32_t capacity, T *items,
                                  uint32_t *actual) = 0;

protected:
  ~VectorViewTable() = default;
};

template <class T>
struct VectorTable : abi::IInspectable {
  virtual HRESULT WRT_ABI GetAt(uint32_t index, T *item) = 0;
  virtual HRESULT WRT_ABI get_Size(uint32_t *size) = 0;
  virtual HRESULT WRT_ABI GetView(VectorViewTable<T> **view) = 0;
  virtual HRESULT WRT_ABI IndexOf(T item, uint32_t *index, uint8_t *found) = 0;
  virtual HRESULT WRT_ABI SetAt(uint32_t index, T item) = 0;
  virtual HRESULT WRT_ABI InsertAt(uint32_t index, T item) = 0;
  virtual HRESULT WRT_ABI RemoveAt(uint32_t index) = 0;
  virtual HRESULT WRT_ABI Append(T item) = 0;
  virtual HRESULT WRT_ABI RemoveAtEnd() = 0;
  virtual HRESULT WRT_ABI Clear() = 0;
  virtual HRESULT WRT_ABI GetMany(uint32_t start, uint32_t capacity, T *items,
                                  uint32_t *actual) = 0;
  virtual HRESULT WRT_ABI ReplaceAll(uint32_t count, T *items) = 0;

protected:
  ~VectorTable() = default;
};

/// A GUID as a key is larger than a word; who reads `get_Key` knows what there must be room for.
struct PairTable : abi::IInspectable {
  virtual HRESULT WRT_ABI get_Key(void *key) = 0;
  virtual HRESULT WRT_ABI get_Value(void *value) = 0;

protected:
  ~PairTable() = default;
};

template <class K, class V>
struct MapViewTable : abi::IInspectable {
  virtual HRESULT WRT_ABI Lookup(K key, V *value) = 0;
  virtual HRESULT WRT_ABI get_Size(uint32_t *size) = 0;
  virtual HRESULT WRT_ABI HasKey(K key, uint8_t *found) = 0;
  virtual HRESULT WRT_ABI Split(MapViewTable<K, V> **first, MapViewTable<K, V> **second) = 0;

protected:
  ~MapViewTable() = default;
};

template <class K, class V>
struct MapTable : abi::IInspectable {
  virtual HRESULT WRT_ABI Lookup(K key, V *value) = 0;
  virtual HRESULT WRT_ABI get_Size(uint32_t *size) = 0;
  virtual HRESULT WRT_ABI HasKey(K key, uint8_t *found) = 0;
  virtual HRESULT WRT_ABI GetView(MapViewTable<K, V> **view) = 0;
  virtual HRESULT WRT_ABI Insert(K key, V value, uint8_t *replaced) = 0;
  virtual HRESULT WRT_ABI Remove(K key) = 0;
  virtual HRESULT WRT_ABI Clear() = 0;

protected:
  ~MapTable() = default;
};

} // namespace wrt::support

#endif
