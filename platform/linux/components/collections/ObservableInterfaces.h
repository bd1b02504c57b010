/// The interfaces of collections that tell about their changes (Windows 10 SDK 10.0.16299.0,
/// windows.foundation.collections.idl).
#ifndef WRT_COMPONENTS_OBSERVABLE_INTERFACES_H
#define WRT_COMPONENTS_OBSERVABLE_INTERFACES_H

#include "platform/linux/components/generic/Types.h"

namespace wrt::implement {

/// `CollectionChange`.
inline constexpr int32_t kReset = 0;
inline constexpr int32_t kItemInserted = 1;
inline constexpr int32_t kItemRemoved = 2;
inline constexpr int32_t kItemChanged = 3;

/// What a vector tells with each change.
struct IVectorChangedEventArgs : abi::IInspectable {
  static constexpr GUID kIid{
      0x575933DF, 0x34FE, 0x4480, {0xAF, 0x15, 0x07, 0x69, 0x1F, 0x3D, 0x5D, 0x9B}};

  virtual HRESULT WRT_ABI get_CollectionChange(int32_t *change) = 0;
  /// 0 when all of the vector changed.
  virtual HRESULT WRT_ABI get_Index(uint32_t *index) = 0;

protected:
  ~IVectorChangedEventArgs() = default;
};

template <class T>
struct IObservableVector;

/// `VectorChangedEventHandler<T>`; the arguments are borrowed.
template <class T>
struct VectorChangedEventHandler : abi::IUnknown {
  static constexpr auto kSignature = instanceSignature<T>(
      {0x0C051752, 0x9FBF, 0x4C70, {0xAA, 0x0C, 0x0E, 0x4C, 0x82, 0xD9, 0xA7, 0x61}});
  static constexpr GUID kIid = identifierOf(kSignature.view());

  virtual HRESULT WRT_ABI Invoke(IObservableVector<T> *sender, IVectorChangedEventArgs *event) = 0;

protected:
  ~VectorChangedEventHandler() = default;
};

/// `IObservableVector<T>`.
template <class T>
struct IObservableVector : abi::IInspectable {
  static constexpr auto kSignature = instanceSignature<T>(
      {0x5917EB53, 0x50B4, 0x4A0D, {0xB3, 0x09, 0x65, 0x86, 0x2B, 0x3F, 0x1D, 0xBC}});
  static constexpr GUID kIid = identifierOf(kSignature.view());

  virtual HRESULT WRT_ABI add_VectorChanged(VectorChangedEventHandler<T> *handler,
                                            WRTEventRegistrationToken *token) = 0;
  virtual HRESULT WRT_ABI remove_VectorChanged(WRTEventRegistrationToken token) = 0;

protected:
  ~IObservableVector() = default;
};

/// `IMapChangedEventArgs<K>`: what a map tells with each change.
template <class K>
struct IMapChangedEventArgs : abi::IInspectable {
  static constexpr auto kSignature = instanceSignature<K>(
      {0x9939F4DF, 0x050A, 0x4C0F, {0xAA, 0x60, 0x77, 0x07, 0x5F, 0x9C, 0x47, 0x77}});
  static constexpr GUID kIid = identifierOf(kSignature.view());

  virtual HRESULT WRT_ABI get_CollectionChange(int32_t *change) = 0;
  /// Empty when all of the map changed.
  virtual HRESULT WRT_ABI get_Key(Abi<K> *key) = 0;

protected:
  ~IMapChangedEventArgs() = default;
};

template <class K, class V>
struct IObservableMap;

/// `MapChangedEventHandler<K, V>`; the arguments are borrowed.
template <class K, class V>
struct MapChangedEventHandler : abi::IUnknown {
  static constexpr auto kSignature = instanceSignature<K, V>(
      {0x179517F3, 0x94EE, 0x41F8, {0xBD, 0xDC, 0x76, 0x8A, 0x89, 0x55, 0x44, 0xF3}});
  static constexpr GUID kIid = identifierOf(kSignature.view());

  virtual HRESULT WRT_ABI Invoke(IObservableMap<K, V> *sender, IMapChangedEventArgs<K> *event) = 0;

protected:
  ~MapChangedEventHandler() = default;
};

/// `IObservableMap<K, V>`.
template <class K, class V>
struct IObservableMap : abi::IInspectable {
  static constexpr auto kSignature = instanceSignature<K, V>(
      {0x65DF2BF5, 0xBF39, 0x41B5, {0xAE, 0xBC, 0x5A, 0x9D, 0x86, 0x5E, 0x47, 0x2B}});
  static constexpr GUID kIid = identifierOf(kSignature.view());

  virtual HRESULT WRT_ABI add_MapChanged(MapChangedEventHandler<K, V> *handler,
                                         WRTEventRegistrationToken *token) = 0;
  virtual HRESULT WRT_ABI remove_MapChanged(WRTEventRegistrationToken token) = 0;

protected:
  ~IObservableMap() = default;
};

} // namespace wrt::implement

#endif
