#include "tests/component/HostileObject.h"

namespace wrt::test {

HRESULT HostileObject::OutRtcArrayPreallocated(int32_t size, int32_t *count,
                                               abi::TestInterface **arr) {
  script().count = size;
  const HRESULT status = TestObject::OutRtcArrayPreallocated(size, count, arr);
  *count = 1000000;
  return status;
}

HRESULT HostileObject::OutStringArrayPreallocated(int32_t size, int32_t *count, HSTRING *arr) {
  script().count = size;
  const HRESULT status = TestObject::OutStringArrayPreallocated(size, count, arr);
  *count = size + 1;
  return status;
}

} // namespace wrt::test
