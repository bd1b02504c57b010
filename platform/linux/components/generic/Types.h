/// The types that parameterised interfaces are instantiated with, as components name them:
///
///     Vector<String>, Map<String, Inspectable>, startOperation<UInt32>(...),
///     Vector<ClassRef<abi::IStorageFile, "Windows.Storage.StorageFile">>
///
/// Each type tells how its values cross interfaces (`Abi`), how components keep them (`Stored`,
/// which owns what it keeps), how one becomes the other, and its signature. Those whose values
/// cannot be compared without calling somebody have a `Key`, which a map keeps in their place.
#ifndef WRT_COMPONENTS_TYPES_H
#define WRT_COMPONENTS_TYPES_H

#include "platform/linux/components/generic/Signature.h"
#include "platform/linux/implement/ComPtr.h"
#include "platform/linux/implement/StringHolder.h"

#include <cstring>
#include <functional>

namespace wrt::implement {

/// Strings. `Abi` values given out are +1.
struct String {
  using Abi = HSTRING;
  using Stored = StringHolder;
  static constexpr auto kSignature = FixedText("string");

  /// Keeps a handle of its own; fails when memory runs out, and leaves `stored` as it was.
  static HRESULT store(HSTRING value, StringHolder &stored) {
    HSTRING copy = nullptr;
    const HRESULT status = WRTHSTRINGDuplicate(value, &copy);
    if (status >= 0)
      stored = StringHolder::adopt(copy);
    return status;
  }
  static HRESULT giveOut(const StringHolder &stored, HSTRING *value) {
    *value = nullptr;
    return stored.copyTo(value);
  }
  /// Takes a value back that was given out.
  static void dispose(HSTRING value) { WRTHSTRINGRelease(value); }
  static bool equal(const StringHolder &left, const StringHolder &right) { return left == right; }
  static bool less(const StringHolder &left, const StringHolder &right) {
    return left.view() < right.view();
  }
};

/// Numbers, enumerations and structures of `T`, which cross as they are.
template <class T, FixedText signature>
struct Value {
  using Abi = T;
  using Stored = T;
  static constexpr auto kSignature = signature;

  static HRESULT store(const T &value, T &stored) {
    stored = value;
    return status::kOk;
  }
  static HRESULT giveOut(const T &stored, T *value) {
    *value = stored;
    return status::kOk;
  }
  static void dispose(const T &) {}
  static bool equal(const T &left, const T &right) {
    if constexpr (std::equality_comparable<T>)
      return left == right;
    else
      return std::memcmp(&left, &right, sizeof(T)) == 0;
  }
  static bool less(const T &left, const T &right) {
    if constexpr (requires { left < right; })
      return left < right;
    else
      return std::memcmp(&left, &right, sizeof(T)) < 0;
  }
};

using UInt8 = Value<uint8_t, "u1">;
using Int16 = Value<int16_t, "i2">;
using UInt16 = Value<uint16_t, "u2">;
using Int32 = Value<int32_t, "i4">;
using UInt32 = Value<uint32_t, "u4">;
using Int64 = Value<long long, "i8">;
using UInt64 = Value<unsigned long long, "u8">;
using Single = Value<float, "f4">;
using Double = Value<double, "f8">;
using Char16 = Value<uint16_t, "c2">;
/// One byte that may hold any number; every one but 0 means true.
using Boolean = Value<uint8_t, "b1">;
using Guid = Value<GUID, "g16">;

/// The enumeration of that full name, as in `Enum<"Windows.Foundation.AsyncStatus">`.
template <FixedText name>
using Enum = Value<int32_t, FixedText("enum(") + name + FixedText(";i4)")>;
/// The same for a flags enumeration.
template <FixedText name>
using FlagsEnum = Value<int32_t, FixedText("enum(") + name + FixedText(";u4)")>;
/// The structure of that full name with fields of these types, as in
/// `Struct<WRTPoint, "Windows.Foundation.Point", Single, Single>`.
template <class T, FixedText name, class... Fields>
using Struct = Value<T, FixedText("struct(") + name +
                            (... + (FixedText(";") + Fields::kSignature)) + FixedText(")")>;

/// The pointer that stands for the object (borrowed, null allowed) as long as it lives, whichever
/// its interface. Asks the object, which may call back: not to be asked for under a lock.
WRT_DLLEXPORT abi::IUnknown *identityOf(abi::IUnknown *object);
/// Whether two interface pointers are to one object; asks both.
WRT_DLLEXPORT bool isSameObject(abi::IUnknown *left, abi::IUnknown *right);

/// An object as the key of a map: its identity is learnt once, so that comparing calls nobody.
template <class Interface>
class ObjectKey {
public:
  ObjectKey(ComPtr<Interface> object)
      : object_(std::move(object)), identity_(identityOf(object_.get())) {}

  operator const ComPtr<Interface> &() const { return object_; }
  bool operator<(const ObjectKey &other) const { return std::less<>()(identity_, other.identity_); }

private:
  ComPtr<Interface> object_;
  const abi::IUnknown *identity_;
};

namespace detail {

/// What objects share, whether they are of an interface or of a class. Null is a value like others.
template <class Interface>
struct ObjectValues {
  using Abi = Interface *;
  using Stored = ComPtr<Interface>;
  using Key = ObjectKey<Interface>;

  static HRESULT store(Interface *value, ComPtr<Interface> &stored) {
    stored = ComPtr<Interface>(value);
    return status::kOk;
  }
  static HRESULT giveOut(const ComPtr<Interface> &stored, Interface **value) {
    return stored.copyTo(value);
  }
  static void dispose(Interface *value) {
    if (value != nullptr)
      value->Release();
  }
  static bool equal(const ComPtr<Interface> &left, const ComPtr<Interface> &right) {
    return isSameObject(left.get(), right.get());
  }
};

} // namespace detail

/// Objects through the interface `Interface`. `Abi` values given out are +1.
template <class Interface>
struct Ref : detail::ObjectValues<Interface> {
  static constexpr auto kSignature = signatureOf<Interface>();
};

using Inspectable = Ref<abi::IInspectable>;

/// Objects of the runtime class of that full name, through its default interface.
template <class Default, FixedText name>
struct ClassRef : detail::ObjectValues<Default> {
  static constexpr auto kSignature =
      FixedText("rc(") + name + FixedText(";") + signatureOf<Default>() + FixedText(")");
};

/// How a component keeps values of the type.
template <class Type>
using Stored = typename Type::Stored;
/// How values of the type cross interfaces.
template <class Type>
using Abi = typename Type::Abi;

} // namespace wrt::implement

#endif
