#ifndef WRT_TESTS_HOSTILE_OBJECT_H
#define WRT_TESTS_HOSTILE_OBJECT_H

#include "tests/component/TestObject.h"

#include <functional>

namespace wrt::test {

/// A component that misbehaves in ways that a caller must survive: success codes other than zero,
/// success without a result, counts that lie.
class HostileObject final : public TestObject {
public:
  /// What these members do to their caller before they do what they should.
  std::function<void()> meddle = [] {};
  HRESULT WRT_ABI InString(HSTRING arg) override {
    meddle();
    return TestObject::InString(arg);
  }
  HRESULT WRT_ABI InInterfaceArray(int32_t count, abi::TestInterface **arr) override {
    meddle();
    return TestObject::InInterfaceArray(count, arr);
  }
  HRESULT WRT_ABI OutStringArray(int32_t *count, HSTRING **arr) override {
    meddle();
    return TestObject::OutStringArray(count, arr);
  }
  HRESULT WRT_ABI ReturnRtcArray(int32_t *count, abi::TestInterface ***arr) override {
    meddle();
    return TestObject::ReturnRtcArray(count, arr);
  }

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
                                          abi::TestInterface **arr) override;
  HRESULT WRT_ABI OutStringArrayPreallocated(int32_t size, int32_t *count, HSTRING *arr) override;
};

} // namespace wrt::test

#endif
