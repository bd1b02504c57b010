#ifndef WRT_IMPLEMENTS_H
#define WRT_IMPLEMENTS_H

#include "platform/linux/implement/ComPtr.h"
#include "platform/linux/implement/Object.h"

#include <concepts>
#include <type_traits>
#include <utility>

namespace wrt::implement {

/// The base of a component's class: everything that an object with these interfaces has to answer
/// apart from their own members. Objects are agile. Interfaces that are no WinRT interfaces, such
/// as `IBufferByteAccess`, come after the first.
///
///     class Uri final : public Implements<abi::IUriRuntimeClass, abi::IStringable> {
///       HRESULT WRT_ABI get_Host(HSTRING *value) override { return host_.copyTo(value); }
///       ...
///     };
///     ComPtr<Uri> uri = make<Uri>(...);
template <class First, class... Rest>
  requires std::derived_from<First, abi::IInspectable> &&
               (std::derived_from<Rest, abi::IUnknown> && ...)
class Implements : public First, public Rest..., public Object {
public:
  /// The pointer that stands for the object: the same whichever interface was asked.
  abi::IInspectable *identity() { return static_cast<First *>(this); }

  HRESULT WRT_ABI QueryInterface(const GUID *iid, void **result) override {
    if (result == nullptr)
      return status::kPointer;
    *result = iid == nullptr ? nullptr : find(*iid);
    if (*result == nullptr)
      return status::kNoInterface;
    retain();
    return status::kOk;
  }

  uint32_t WRT_ABI AddRef() override { return retain(); }

  uint32_t WRT_ABI Release() override { return release(); }

  HRESULT WRT_ABI GetIids(uint32_t *count, GUID **iids) override {
    return copyIids(
        {{First::kIid, true}, {Rest::kIid, std::derived_from<Rest, abi::IInspectable>}...}, count,
        iids);
  }

  HRESULT WRT_ABI GetRuntimeClassName(HSTRING *name) override { return copyRuntimeClassName(name); }

  HRESULT WRT_ABI GetTrustLevel(int32_t *level) override {
    if (level == nullptr)
      return status::kPointer;
    *level = 0;
    return status::kOk;
  }

private:
  void *find(const GUID &iid) {
    if (iid == abi::IUnknown::kIid || iid == abi::IInspectable::kIid ||
        iid == abi::IAgileObject::kIid || iid == First::kIid)
      return static_cast<First *>(this);
    void *found = nullptr;
    ((iid == Rest::kIid ? void(found = static_cast<Rest *>(this)) : void()), ...);
    return found;
  }
};

/// A new object of a component's class.
template <class Class, class... Arguments>
ComPtr<Class> make(Arguments &&...arguments) {
  return ComPtr<Class>::adopt(new Class(std::forward<Arguments>(arguments)...));
}

/// Answers an out-parameter with a new object: `*out` is +1.
template <class Class, class Interface, class... Arguments>
HRESULT makeInto(Interface **out, Arguments &&...arguments) {
  if (out == nullptr)
    return status::kPointer;
  *out = make<Class>(std::forward<Arguments>(arguments)...).detach();
  return status::kOk;
}

} // namespace wrt::implement

#endif
