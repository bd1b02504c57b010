/// The interfaces of collections for any element (Windows 10 SDK 10.0.16299.0,
/// windows.foundation.collections.idl).
#ifndef WRT_COMPONENTS_COLLECTION_INTERFACES_H
#define WRT_COMPONENTS_COLLECTION_INTERFACES_H

#include "platform/linux/components/generic/Types.h"

namespace wrt::implement {

/// `IIterator<T>`. Objects and strings that are given out are +1, here and in all collections.
template <class T>
struct IIterator : abi::IInspectable {
  static constexpr auto kSignature = instanceSignature<T>(
      {0x6A79E863, 0x4300, 0x459A, {0x99, 0x66, 0xCB, 0xB6, 0x60, 0x96, 0x3E, 0xE1}});
  static constexpr GUID kIid = identifierOf(kSignature.view());

  virtual HRESULT WRT_ABI get_Current(Abi<T> *current) = 0;
  virtual HRESULT WRT_ABI get_HasCurrent(uint8_t *hasCurrent) = 0;
  virtual HRESULT WRT_ABI MoveNext(uint8_t *hasCurrent) = 0;
  virtual HRESULT WRT_ABI GetMany(uint32_t capacity, Abi<T> *items, uint32_t *actual) = 0;

protected:
  ~IIterator() = default;
};

/// `IIterable<T>`.
template <class T>
struct IIterable : abi::IInspectable {
  static constexpr auto kSignature = instanceSignature<T>(
      {0xFAA585EA, 0x6214, 0x4217, {0xAF, 0xDA, 0x7F, 0x46, 0xDE, 0x58, 0x69, 0xB3}});
  static constexpr GUID kIid = identifierOf(kSignature.view());

  virtual HRESULT WRT_ABI First(IIterator<T> **iterator) = 0;

protected:
  ~IIterable() = default;
};

/// `IVectorView<T>`.
template <class T>
struct IVectorView : abi::IInspectable {
  static constexpr auto kSignature = instanceSignature<T>(
      {0xBBE1FA4C, 0xB0E3, 0x4583, {0xBA, 0xEF, 0x1F, 0x1B, 0x2E, 0x48, 0x3E, 0x56}});
  static constexpr GUID kIid = identifierOf(kSignature.view());

  virtual HRESULT WRT_ABI GetAt(uint32_t index, Abi<T> *item) = 0;
  virtual HRESULT WRT_ABI get_Size(uint32_t *size) = 0;
  virtual HRESULT WRT_ABI IndexOf(Abi<T> item, uint32_t *index, uint8_t *found) = 0;
  virtual HRESULT WRT_ABI GetMany(uint32_t startIndex, uint32_t capacity, Abi<T> *items,
                                  uint32_t *actual) = 0;

protected:
  ~IVectorView() = default;
};

/// `IVector<T>`.
template <class T>
struct IVector : abi::IInspectable {
  static constexpr auto kSignature = instanceSignature<T>(
      {0x913337E9, 0x11A1, 0x4345, {0xA3, 0xA2, 0x4E, 0x7F, 0x95, 0x6E, 0x22, 0x2D}});
  static constexpr GUID kIid = identifierOf(kSignature.view());

  virtual HRESULT WRT_ABI GetAt(uint32_t index, Abi<T> *item) = 0;
  virtual HRESULT WRT_ABI get_Size(uint32_t *size) = 0;
  virtual HRESULT WRT_ABI GetView(IVectorView<T> **view) = 0;
  virtual HRESULT WRT_ABI IndexOf(Abi<T> value, uint32_t *index, uint8_t *found) = 0;
  virtual HRESULT WRT_ABI SetAt(uint32_t index, Abi<T> item) = 0;
  virtual HRESULT WRT_ABI InsertAt(uint32_t index, Abi<T> item) = 0;
  virtual HRESULT WRT_ABI RemoveAt(uint32_t index) = 0;
  virtual HRESULT WRT_ABI Append(Abi<T> item) = 0;
  virtual HRESULT WRT_ABI RemoveAtEnd() = 0;
  virtual HRESULT WRT_ABI Clear() = 0;
  virtual HRESULT WRT_ABI GetMany(uint32_t startIndex, uint32_t capacity, Abi<T> *items,
                                  uint32_t *actual) = 0;
  virtual HRESULT WRT_ABI ReplaceAll(uint32_t count, Abi<T> *values) = 0;

protected:
  ~IVector() = default;
};

/// `IKeyValuePair<K, V>`.
template <class K, class V>
struct IKeyValuePair : abi::IInspectable {
  static constexpr auto kSignature = instanceSignature<K, V>(
      {0x02B51929, 0xC1C4, 0x4A7E, {0x89, 0x40, 0x03, 0x12, 0xB5, 0xC1, 0x85, 0x00}});
  static constexpr GUID kIid = identifierOf(kSignature.view());

  virtual HRESULT WRT_ABI get_Key(Abi<K> *key) = 0;
  virtual HRESULT WRT_ABI get_Value(Abi<V> *value) = 0;

protected:
  ~IKeyValuePair() = default;
};

/// What iterating a map yields.
template <class K, class V>
using PairOf = Ref<IKeyValuePair<K, V>>;

/// `IMapView<K, V>`.
template <class K, class V>
struct IMapView : abi::IInspectable {
  static constexpr auto kSignature = instanceSignature<K, V>(
      {0xE480CE40, 0xA338, 0x4ADA, {0xAD, 0xCF, 0x27, 0x22, 0x72, 0xE4, 0x8C, 0xB9}});
  static constexpr GUID kIid = identifierOf(kSignature.view());

  virtual HRESULT WRT_ABI Lookup(Abi<K> key, Abi<V> *value) = 0;
  virtual HRESULT WRT_ABI get_Size(uint32_t *size) = 0;
  virtual HRESULT WRT_ABI HasKey(Abi<K> key, uint8_t *found) = 0;
  virtual HRESULT WRT_ABI Split(IMapView<K, V> **first, IMapView<K, V> **second) = 0;

protected:
  ~IMapView() = default;
};

/// `IMap<K, V>`.
template <class K, class V>
struct IMap : abi::IInspectable {
  static constexpr auto kSignature = instanceSignature<K, V>(
      {0x3C2925FE, 0x8519, 0x45C1, {0xAA, 0x79, 0x19, 0x7B, 0x67, 0x18, 0xC1, 0xC1}});
  static constexpr GUID kIid = identifierOf(kSignature.view());

  virtual HRESULT WRT_ABI Lookup(Abi<K> key, Abi<V> *value) = 0;
  virtual HRESULT WRT_ABI get_Size(uint32_t *size) = 0;
  virtual HRESULT WRT_ABI HasKey(Abi<K> key, uint8_t *found) = 0;
  virtual HRESULT WRT_ABI GetView(IMapView<K, V> **view) = 0;
  virtual HRESULT WRT_ABI Insert(Abi<K> key, Abi<V> value, uint8_t *replaced) = 0;
  virtual HRESULT WRT_ABI Remove(Abi<K> key) = 0;
  virtual HRESULT WRT_ABI Clear() = 0;

protected:
  ~IMap() = default;
};

} // namespace wrt::implement

#endif
