#include "platform/linux/components/async/AsyncOperation.h"

#include <new>
#include <stdexcept>

namespace wrt::test {

using namespace implement;

// Apart from the cells, since Objective-C++ code cannot catch C++ exceptions with this runtime.
IAsyncOperation<UInt32> *startThrowing(bool outOfMemory) {
  IAsyncOperation<UInt32> *operation = nullptr;
  startAsync<UInt32>(&operation, [outOfMemory](const Work<> &, uint32_t &) -> HRESULT {
    if (outOfMemory)
      throw std::bad_alloc();
    throw std::runtime_error("no");
  });
  return operation;
}

} // namespace wrt::test
