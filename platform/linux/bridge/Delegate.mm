#include "platform/linux/bridge/Delegate.h"

#include "platform/linux/ledger/WRTLedger.h"

#include <ObjCRuntime.h>
#include <WRTAbi.h>
#include <new>

namespace wrt::delegate {

HRESULT WRT_ABI queryInterface(Delegate *self, const GUID *iid, void **result) {
  if (result == nullptr)
    return status::kPointer;
  *result = nullptr;
  if (iid == nullptr ||
      !(*iid == abi::IUnknown::kIid || *iid == abi::IAgileObject::kIid || *iid == self->iid))
    return status::kNoInterface;
  addRef(self);
  *result = self;
  return status::kOk;
}

uint32_t WRT_ABI addRef(Delegate *self) {
  return self->references.fetch_add(1, std::memory_order_relaxed) + 1;
}

uint32_t WRT_ABI release(Delegate *self) {
  const uint32_t remaining = self->references.fetch_sub(1, std::memory_order_acq_rel) - 1;
  if (remaining == 0) {
    const AutoreleasePool pool;
    objc_release(self->block);
    delete self;
    WRTLedgerAdd(kWRTLedgerDelegates, -1);
  }
  return remaining;
}

Delegate *create(const Table *table, const GUID &iid, id block) {
  auto *delegate = new (std::nothrow) Delegate{table, 1, iid, nil};
  if (delegate == nullptr)
    return nullptr;
  delegate->block = objc_retainBlock(block);
  WRTLedgerAdd(kWRTLedgerDelegates, 1);
  return delegate;
}

} // namespace wrt::delegate
