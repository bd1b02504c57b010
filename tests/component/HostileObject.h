#ifndef WRT_TESTS_HOSTILE_OBJECT_H
#define WRT_TESTS_HOSTILE_OBJECT_H

#include "tests/component/TestObject.h"

namespace wrt::test {

/// A component that misbehaves in ways that a caller must survive: success codes other than zero,
/// success without a result, counts that lie.
class HostileObject final : public TestObject {
public:
  /// Succeed with `S_FALSE`.
  HRESULT WRT_ABI VoidFunction() override { return 1; }
  HRESULT WRT_ABI ReturnPrimitive(int32_t *result) override {
    *result = 5;
    return 1;
  }

  /// Succeed and write nothing.
  HRESULT WRT_ABI ReturnInterface(abi::TestInterface **) override { return 0; }
  HRESULT WRT_ABI ReturnRtc(abi::TestInterface **) override { return 0; }
  HRESULT WRT_ABI ReturnString(HSTRING *) override { return 0; }
  HRESULT WRT_ABI ReturnStringArray(int32_t *, HSTRING **) override { return 0; }

  /// Deliver fewer than none.
  HRESULT WRT_ABI OutInterfaceArray(int32_t *count, abi::TestInterface ***arr) override {
    *count = -1;
    *arr = nullptr;
    return 0;
  }

  /// Claim to have filled what was asked for and fill nothing.
  HRESULT WRT_ABI OutInterfaceArrayPreallocated(int32_t size, int32_t *count,
                                                abi::TestInterface **) override {
    *count = size;
    return 0;
  }
  HRESULT WRT_ABI ReturnStringArrayPreallocated(int32_t size, int32_t *count, HSTRING *) override {
    *count = size;
    return 0;
  }

  /// Fill what was asked for and claim more.
  HRESULT WRT_ABI OutRtcArrayPreallocated(int32_t size, int32_t *count,
                                          abi::TestInterface **arr) override {
    script().count = size;
    const HRESULT status = TestObject::OutRtcArrayPreallocated(size, count, arr);
    *count = 1000000;
    return status;
  }
  HRESULT WRT_ABI OutStringArrayPreallocated(int32_t size, int32_t *count, HSTRING *arr) override {
    script().count = size;
    const HRESULT status = TestObject::OutStringArrayPreallocated(size, count, arr);
    *count = size + 1;
    return status;
  }
};

} // namespace wrt::test

#endif
