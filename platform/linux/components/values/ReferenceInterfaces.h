/// The interfaces of boxed values of one type (Windows 10 SDK 10.0.16299.0,
/// windows.foundation.idl).
#ifndef WRT_COMPONENTS_REFERENCE_INTERFACES_H
#define WRT_COMPONENTS_REFERENCE_INTERFACES_H

#include "platform/linux/components/generic/Types.h"

namespace wrt::implement {

/// `IReference<T>`.
template <class T>
struct IReference : abi::IInspectable {
  static constexpr auto kSignature = instanceSignature<T>(
      {0x61C17706, 0x2D65, 0x11E0, {0x9A, 0xE8, 0xD4, 0x85, 0x64, 0x01, 0x54, 0x72}});
  static constexpr GUID kIid = identifierOf(kSignature.view());

  virtual HRESULT WRT_ABI get_Value(Abi<T> *value) = 0;

protected:
  ~IReference() = default;
};

/// `IReferenceArray<T>`.
template <class T>
struct IReferenceArray : abi::IInspectable {
  static constexpr auto kSignature = instanceSignature<T>(
      {0x61C17707, 0x2D65, 0x11E0, {0x9A, 0xE8, 0xD4, 0x85, 0x64, 0x01, 0x54, 0x72}});
  static constexpr GUID kIid = identifierOf(kSignature.view());

  /// `*values` is task memory of `*count` elements, which the caller owns as well.
  virtual HRESULT WRT_ABI get_Value(uint32_t *count, Abi<T> **values) = 0;

protected:
  ~IReferenceArray() = default;
};

} // namespace wrt::implement

#endif
