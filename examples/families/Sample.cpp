#include "examples/families/Sample.h"

#include "platform/linux/components/async/AsyncOperation.h"
#include "platform/linux/components/collections/Map.h"
#include "platform/linux/components/collections/Vector.h"

#include <chrono>
#include <thread>

using namespace wrt::implement;
namespace status = wrt::status;

void *SampleAddUp(unsigned int count) {
  IAsyncOperationWithProgress<UInt32, UInt32> *operation = nullptr;
  startAsync<UInt32, UInt32>(&operation,
                             [count](const Work<UInt32> &work, uint32_t &result) -> HRESULT {
                               for (uint32_t number = 1; number <= count; ++number) {
                                 std::this_thread::sleep_for(std::chrono::milliseconds(20));
                                 if (work.isCanceled())
                                   return status::kAbort;
                                 result += number;
                                 work.report(100 * number / count);
                               }
                               return status::kOk;
                             });
  return operation;
}

void *SampleNewVector() {
  IVector<String> *vector = nullptr;
  makeVector<String>(&vector);
  return vector;
}

void *SampleNewMap() {
  IMap<String, Ref<IVector<String>>> *map = nullptr;
  makeMap<String, Ref<IVector<String>>>(&map);
  return map;
}
