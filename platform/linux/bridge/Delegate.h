#ifndef WRT_DELEGATE_H
#define WRT_DELEGATE_H

#include "platform/linux/bridge/AutoreleasePool.h"

#include <Block.h>
#include <WRTObjcBridge/WRTTypes.h>
#include <WRTStatus.h>
#include <atomic>
#include <memory>
#include <objc/objc.h>

namespace wrt {
namespace delegate {

struct Delegate;

/// The function table of a delegate.
struct Table {
  HRESULT(WRT_ABI *queryInterface)(Delegate *self, const GUID *iid, void **result);
  uint32_t(WRT_ABI *addRef)(Delegate *self);
  uint32_t(WRT_ABI *release)(Delegate *self);
  /// Slot 3. Its true type depends on the delegate's signature.
  void *invoke;
};

/// A delegate object that calls a block. Agile: any thread may invoke it.
struct Delegate {
  const Table *table;
  std::atomic<uint32_t> references;
  GUID iid;
  id block; ///< owned
};

WRT_DLLEXPORT HRESULT WRT_ABI queryInterface(Delegate *self, const GUID *iid, void **result);
WRT_DLLEXPORT uint32_t WRT_ABI addRef(Delegate *self);
WRT_DLLEXPORT uint32_t WRT_ABI release(Delegate *self);
/// A new delegate (+1) with a reference of its own to `block`, or null without memory. The table
/// must not go away.
WRT_DLLEXPORT Delegate *create(const Table *table, const GUID &iid, id block);

/// The part that depends on the signature.
template <class Signature>
struct Invoker;

template <class... Arguments>
struct Invoker<HRESULT(Arguments...)> {
  static HRESULT WRT_ABI invoke(Delegate *self, Arguments... arguments) {
    using Block = HRESULT (^)(Arguments...);
    if (self->block == nil)
      return status::kPointer;
    // The thread may be one that Objective-C has never seen and that has no pool.
    const AutoreleasePool pool;
    // The block may make the component drop the delegate, and with it the block itself.
    const std::unique_ptr<const void, void (*)(const void *)> kept(_Block_copy(self->block),
                                                                   _Block_release);
    return static_cast<Block>(self->block)(arguments...);
  }

  static inline const Table kTable{queryInterface, addRef, release,
                                   reinterpret_cast<void *>(&invoke)};
};

} // namespace delegate

/// A new delegate (+1) with the interface `iid`, whose `Invoke` has the parameters of `Signature`
/// (as in `HRESULT(void *, int32_t)`), calls the block with them and gives its result back. The
/// delegate keeps a reference to the block until its last reference goes; a nil block makes a
/// delegate whose `Invoke` fails with `E_POINTER`.
template <class Signature>
void *makeDelegate(const GUID &iid, id block) {
  return delegate::create(&delegate::Invoker<Signature>::kTable, iid, block);
}

} // namespace wrt

#endif
