#include "platform/linux/implement/Object.h"

#include "platform/linux/ledger/WRTLedger.h"
#include "platform/linux/string/HString.h"

#include <WRTBridge.h>
#include <WRTStatus.h>

namespace wrt::implement {

Object::Object() { WRTLedgerAdd(kWRTLedgerObjects, 1); }

Object::~Object() { WRTLedgerAdd(kWRTLedgerObjects, -1); }

uint32_t Object::retain() { return references_.fetch_add(1, std::memory_order_relaxed) + 1; }

uint32_t Object::release() {
  const uint32_t remaining = references_.fetch_sub(1, std::memory_order_acq_rel) - 1;
  if (remaining == 0)
    delete this;
  return remaining;
}

HRESULT Object::copyIids(std::initializer_list<Interface> own, uint32_t *count, GUID **iids) {
  if (count == nullptr || iids == nullptr)
    return status::kPointer;
  *count = 0;
  *iids = static_cast<GUID *>(WRTTaskMemAlloc(own.size() * sizeof(GUID)));
  if (*iids == nullptr)
    return status::kOutOfMemory;
  for (const Interface &interface : own) {
    if (interface.isInspectable)
      (*iids)[(*count)++] = interface.iid;
  }
  return status::kOk;
}

HRESULT Object::copyRuntimeClassName(HSTRING *name) const {
  if (name == nullptr)
    return status::kPointer;
  return makeString(runtimeClassName(), name);
}

} // namespace wrt::implement
