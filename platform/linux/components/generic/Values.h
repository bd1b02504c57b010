/// How components keep and give values of the types that generic interfaces have as arguments. The
/// types derive from what stands here (Types.h).
#ifndef WRT_COMPONENTS_VALUES_H
#define WRT_COMPONENTS_VALUES_H

#include "platform/linux/implement/ComPtr.h"
#include "platform/linux/implement/StringHolder.h"

#include <cstring>
#include <functional>

namespace wrt::implement {

/// Strings. `Abi` values given out are +1.
struct Strings {
  using Abi = HSTRING;
  using Stored = StringHolder;

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
template <class T>
struct Value {
  using Abi = T;
  using Stored = T;

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

/// Objects through the interface `Interface`, whether they are of that or of a class. Null is a
/// value like others. `Abi` values given out are +1.
template <class Interface>
struct Objects {
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

/// An interface as a type argument.
template <class Interface>
struct Ref : Objects<Interface> {};

/// How a component keeps values of the type.
template <class Type>
using Stored = typename Type::Stored;
/// How values of the type cross interfaces.
template <class Type>
using Abi = typename Type::Abi;

} // namespace wrt::implement

#endif
