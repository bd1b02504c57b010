#ifndef WRT_TESTS_FAKE_OBJECT_H
#define WRT_TESTS_FAKE_OBJECT_H

#include "arm/Check.h"

#include <WRTUnknown.h>

namespace wrt::test {

/// A WinRT object with one interface beside `IUnknown`, whose functions a test fills in one by one:
/// `object.table.get_Title = [](WRTIFoo *self, HSTRING *result) { ... }`. A function that is called
/// without having been filled in ends the run. It lives where it stands; nobody frees it.
template <class Table>
struct FakeObject {
  const Table *functions;
  Table table;
  GUID iid;
  int references = 1;
  /// Cleared, the object answers `IUnknown` alone.
  bool hasInterface = true;

  explicit FakeObject(const GUID &iid) : functions(&table), iid(iid) {
    auto *slots = reinterpret_cast<void (**)()>(&table);
    for (unsigned i = 0; i < sizeof(Table) / sizeof *slots; ++i)
      slots[i] = [] { hostEnd("a slot is called that no test expects"); };
    slots[0] = reinterpret_cast<void (*)()>(queryInterface);
    slots[1] = reinterpret_cast<void (*)()>(addReference);
    slots[2] = reinterpret_cast<void (*)()>(release);
  }
  FakeObject(const FakeObject &) = delete;
  FakeObject &operator=(const FakeObject &) = delete;

  /// The object as a pointer to its interface, or to one that looks the same.
  template <class Interface>
  Interface *as() {
    return reinterpret_cast<Interface *>(this);
  }

private:
  static HRESULT queryInterface(FakeObject *self, const GUID *iid, void **result) {
    const bool known = *iid == WRTIUnknownGetUUID() || (*iid == self->iid && self->hasInterface);
    *result = known ? self : nullptr;
    self->references += known;
    return known ? 0 : kNoInterface;
  }
  static uint32_t addReference(FakeObject *self) {
    return static_cast<uint32_t>(++self->references);
  }
  static uint32_t release(FakeObject *self) { return static_cast<uint32_t>(--self->references); }
};

/// The delegate that a fake was given last, kept as an event source keeps it.
inline void *kept;

inline HRESULT keep(void *delegate) {
  WRTIUnknownAddRef(delegate);
  kept = delegate;
  return 0;
}

/// Calls a delegate's Invoke, as WinRT does.
template <class... Arguments>
HRESULT invoke(void *delegate, Arguments... arguments) {
  using Invoke = HRESULT (*)(void *, Arguments...);
  return (*static_cast<Invoke **>(delegate))[3](delegate, arguments...);
}

} // namespace wrt::test

#endif
