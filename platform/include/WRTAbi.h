/// The root interfaces of the Windows Runtime as C++ sees them: abstract classes whose virtual
/// functions lie in the order of the interface tables and have their calling convention. The
/// generated headers add every other interface and delegate in the same form:
///
///     struct IFoo : IInspectable {
///       static constexpr GUID kIid{...};
///       virtual HRESULT WRT_ABI get_Title(HSTRING *value) = 0;
///
///     protected:
///       ~IFoo() = default;
///     };
///
/// A destructor must never be virtual, since it would take slots of the table; it is protected,
/// since nobody destroys an object through an interface.
#ifndef WRT_ABI_H
#define WRT_ABI_H

#include <WRTObjcBridge/WRTTypes.h>

// The Windows headers bring a comparison of their own.
#if !defined(_GUIDDEF_H_) && !defined(__WINE_GUIDDEF_H)
/// Whether two identifiers name the same interface.
constexpr bool operator==(const GUID &left, const GUID &right) {
  if (left.Data1 != right.Data1 || left.Data2 != right.Data2 || left.Data3 != right.Data3)
    return false;
  for (int i = 0; i < 8; ++i) {
    if (left.Data4[i] != right.Data4[i])
      return false;
  }
  return true;
}
#endif

namespace wrt::abi {

/// Slots 0 to 2 of every interface (Windows 10 SDK 10.0.16299.0, unknwnbase.h).
struct IUnknown {
  static constexpr GUID kIid{0x00000000, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

  /// The interface `iid` of the same object: `*result` is +1, or null with `E_NOINTERFACE`.
  virtual HRESULT WRT_ABI QueryInterface(const GUID *iid, void **result) = 0;
  /// Adds a reference; answers the new count.
  virtual uint32_t WRT_ABI AddRef() = 0;
  /// Drops a reference; answers the remaining count.
  virtual uint32_t WRT_ABI Release() = 0;

protected:
  ~IUnknown() = default;
};

/// Slots 0 to 5 of every WinRT interface that is not a delegate (Windows 10 SDK 10.0.16299.0,
/// inspectable.h).
struct IInspectable : IUnknown {
  static constexpr GUID kIid{
      0xAF86E2E0, 0xB12D, 0x4C6A, {0x9C, 0x5A, 0xD7, 0xAA, 0x65, 0x10, 0x1E, 0x90}};

  /// The object's WinRT interfaces: `*iids` is task memory that the caller frees.
  virtual HRESULT WRT_ABI GetIids(uint32_t *count, GUID **iids) = 0;
  /// The object's runtime class: `*name` is +1.
  virtual HRESULT WRT_ABI GetRuntimeClassName(HSTRING *name) = 0;
  /// The object's trust level (TrustLevel: 0 base, 1 partial, 2 full).
  virtual HRESULT WRT_ABI GetTrustLevel(int32_t *level) = 0;

protected:
  ~IInspectable() = default;
};

/// A marker without functions of its own: the object may be called on any thread (Windows 10 SDK
/// 10.0.16299.0, objidlbase.h).
struct IAgileObject : IUnknown {
  static constexpr GUID kIid{
      0x94EA2B94, 0xE9CC, 0x49E0, {0xC0, 0xFF, 0xEE, 0x64, 0xCA, 0x8F, 0x5B, 0x90}};

protected:
  ~IAgileObject() = default;
};

/// What every runtime class's factory answers (Windows 10 SDK 10.0.16299.0, activation.h).
struct IActivationFactory : IInspectable {
  static constexpr GUID kIid{0x00000035, 0x0000, 0x0000, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

  /// A new default instance (+1) of the class, or `E_NOTIMPL` when it has none.
  virtual HRESULT WRT_ABI ActivateInstance(IInspectable **instance) = 0;

protected:
  ~IActivationFactory() = default;
};

/// The bytes of an `IBuffer`; no WinRT interface, but one that its implementations answer (Windows
/// 10 SDK 10.0.16299.0, robuffer.h).
struct IBufferByteAccess : IUnknown {
  static constexpr GUID kIid{
      0x905A0FEF, 0xBC53, 0x11DF, {0x8C, 0x49, 0x00, 0x1E, 0x4F, 0xC6, 0x86, 0xDA}};

  /// `*bytes` is borrowed from the buffer.
  virtual HRESULT WRT_ABI Buffer(uint8_t **bytes) = 0;

protected:
  ~IBufferByteAccess() = default;
};

} // namespace wrt::abi

#endif
