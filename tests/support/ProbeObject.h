#ifndef WRT_TESTS_PROBE_OBJECT_H
#define WRT_TESTS_PROBE_OBJECT_H

#include "platform/linux/ledger/WRTLedger.h"
#include <WRTAbi.h>

#include <atomic>
#include <vector>

namespace wrt::test {

/// An object that does what a test tells it when it is asked for an interface, and remembers the
/// questions. The test owns it: its references are only counted.
class ProbeObject final : public abi::IInspectable {
public:
  /// What `QueryInterface` answers; a failure leaves `*result` as it is.
  HRESULT queryStatus = 0;
  std::vector<GUID> queries;
  /// What a successful query hands out; null stands for the object itself.
  void *answer = nullptr;

  int references() const { return references_; }

  HRESULT WRT_ABI QueryInterface(const GUID *iid, void **result) override {
    queries.push_back(*iid);
    if (queryStatus < 0)
      return queryStatus;
    AddRef();
    *result = answer ? answer : this;
    return queryStatus;
  }
  uint32_t WRT_ABI AddRef() override { return static_cast<uint32_t>(++references_); }
  uint32_t WRT_ABI Release() override { return static_cast<uint32_t>(--references_); }
  HRESULT WRT_ABI GetIids(uint32_t *, GUID **) override { return kNotImplemented; }
  HRESULT WRT_ABI GetRuntimeClassName(HSTRING *) override { return kNotImplemented; }
  HRESULT WRT_ABI GetTrustLevel(int32_t *) override { return kNotImplemented; }

private:
  static constexpr HRESULT kNotImplemented = static_cast<HRESULT>(0x80004001);

  std::atomic<int> references_ = 1;
};

} // namespace wrt::test

#endif
