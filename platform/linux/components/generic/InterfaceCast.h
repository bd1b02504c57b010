#ifndef WRT_COMPONENTS_INTERFACE_CAST_H
#define WRT_COMPONENTS_INTERFACE_CAST_H

#include "platform/linux/implement/ComPtr.h"

namespace wrt::implement {

/// The same interface under another declaration of it. Components declare parameterised interfaces
/// once, as templates; the generated headers declare each instance anew, proxies without members.
/// Both describe one function table, which the equal identifiers vouch for.
template <class To, class From>
To *interfaceCast(From *interface) {
  static_assert(To::kIid == From::kIid, "these are declarations of different interfaces");
  return reinterpret_cast<To *>(interface);
}

/// Answers an out-parameter with `object` (handed over) as its interface `Interface`, whichever
/// declaration of that interface the parameter has: `*out` is +1.
template <class Interface, class Object, class Declared>
HRESULT handOut(ComPtr<Object> object, Declared **out) {
  if (out == nullptr)
    return status::kPointer;
  Interface *interface = object.detach();
  *out = interfaceCast<Declared>(interface);
  return status::kOk;
}

} // namespace wrt::implement

#endif
