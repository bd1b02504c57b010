#ifndef WRT_WINDOWS_DELEGATE_H
#define WRT_WINDOWS_DELEGATE_H

#include <WRTAbi.h>
#include <WRTBridge.h>
#include <WRTStatus.h>
#include <new>
#include <objc/objc.h>

extern "C" {
void *_Block_copy(const void *block);
void _Block_release(const void *block);
void *objc_autoreleasePoolPush(void);
void objc_autoreleasePoolPop(void *pool);
}

/// Delegates of add-ons: those of the product come from WRTBridge_zorvex.dll.
namespace wrt {

namespace delegate {

/// A delegate object that calls a block. Agile: any thread may invoke it.
struct Delegate {
  const void *const *table;
  uint32_t references;
  GUID iid;
  const void *block; ///< owned
};

inline uint32_t addRef(Delegate *self) {
  return __atomic_add_fetch(&self->references, 1, __ATOMIC_RELAXED);
}

inline uint32_t release(Delegate *self) {
  const uint32_t left = __atomic_sub_fetch(&self->references, 1, __ATOMIC_ACQ_REL);
  if (left == 0) {
    _Block_release(self->block);
    WRTTaskMemFree(self);
  }
  return left;
}

inline HRESULT queryInterface(Delegate *self, const GUID *iid, void **result) {
  const bool has =
      *iid == self->iid || *iid == abi::IUnknown::kIid || *iid == abi::IAgileObject::kIid;
  *result = has ? self : nullptr;
  if (!has)
    return status::kNoInterface;
  addRef(self);
  return status::kOk;
}

/// The part that depends on the signature.
template <class Signature>
struct Invoker;

template <class... Arguments>
struct Invoker<HRESULT(Arguments...)> {
  static HRESULT invoke(Delegate *self, Arguments... arguments) {
    using Block = HRESULT (^)(Arguments...);
    // The thread may be one without a pool; and the block may make its component drop the delegate.
    void *const pool = objc_autoreleasePoolPush();
    const void *const kept = _Block_copy(self->block);
    const HRESULT status = reinterpret_cast<Block>(const_cast<void *>(kept))(arguments...);
    _Block_release(kept);
    objc_autoreleasePoolPop(pool);
    return status;
  }

  static inline const void *const kTable[4] = {
      reinterpret_cast<const void *>(&queryInterface), reinterpret_cast<const void *>(&addRef),
      reinterpret_cast<const void *>(&release), reinterpret_cast<const void *>(&invoke)};
};

} // namespace delegate

/// A new delegate (+1) with the interface `iid`, whose `Invoke` has the parameters of `Signature`,
/// calls the block with them and gives its result back; null without memory. The delegate keeps a
/// reference to the block until its last reference goes.
template <class Signature>
void *makeDelegate(const GUID &iid, id block) {
  void *const memory = WRTTaskMemAlloc(sizeof(delegate::Delegate));
  if (memory == nullptr)
    return nullptr;
  return new (memory) delegate::Delegate{delegate::Invoker<Signature>::kTable, 1, iid,
                                         _Block_copy((const void *)block)};
}

} // namespace wrt

#endif
