#ifndef WRT_BENCH_QUIET_COMPONENT_H
#define WRT_BENCH_QUIET_COMPONENT_H

#include "platform/linux/implement/EventSource.h"
#include "tests/component/TestObject.h"

#include <WRTBridge.h>

namespace wrt::bench {

/// The test component without its recording: what remains is the cost of getting there.
class QuietObject final : public test::TestObject {
public:
  HRESULT WRT_ABI VoidFunction() override { return failure; }
  HRESULT WRT_ABI InPrimitive(int32_t) override { return 0; }
  HRESULT WRT_ABI ReturnPrimitive(int32_t *result) override {
    *result = 1;
    return 0;
  }
  HRESULT WRT_ABI InString(HSTRING) override { return 0; }
  HRESULT WRT_ABI ReturnString(HSTRING *result) override {
    *result = string;
    return 0;
  }
  HRESULT WRT_ABI InInterface(abi::TestInterface *) override { return 0; }
  HRESULT WRT_ABI ReturnInterface(abi::TestInterface **result) override {
    AddRef();
    *result = this;
    return 0;
  }
  HRESULT WRT_ABI ReturnStruct(WRTTestStruct *result) override {
    *result = {1, 2};
    return 0;
  }
  HRESULT WRT_ABI InStringArray(int32_t, HSTRING *) override { return 0; }
  HRESULT WRT_ABI OutStringArrayPreallocated(int32_t size, int32_t *count, HSTRING *arr) override {
    for (int32_t i = 0; i < size; ++i)
      WRTHSTRINGDuplicate(string, &arr[i]);
    *count = size;
    return 0;
  }
  HRESULT WRT_ABI InDelegate(abi::TestDelegate *arg) override {
    return arg->Invoke(1, string, this, this);
  }

  /// What `VoidFunction` answers.
  HRESULT failure = 0;
  /// Handed out without a new handle, since a returned string is not released.
  HSTRING string = nullptr;
};

} // namespace wrt::bench

#endif
