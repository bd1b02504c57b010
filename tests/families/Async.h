/// What the cells of asynchronous operations have in common.
#ifndef WRT_TESTS_ASYNC_H
#define WRT_TESTS_ASYNC_H

#include "tests/families/Families.h"

#import <WRTObjcBridge/IAsyncOperation.h>
#import <WRTObjcBridge/Windows.Foundation.h>

namespace wrt::test {

using namespace implement;

using UIntBridge = WRTIAsyncOperation__1_WRTUINT32_Bridge;
using UIntOperation = id<WRTIAsyncOperation__1_WRTUINT32_Bridge>;

inline id<WRTIAsyncInfoBridge> infoOf(id operation) { return [WRTIAsyncInfoBridge cast:operation]; }

/// An operation that ends with 17 or the failure `outcome` once `gate` is open.
inline UIntOperation waitingFor(std::shared_ptr<Gate> gate, HRESULT outcome = status::kOk) {
  return startedOperation<UInt32>([UIntBridge class],
                                  [gate, outcome](const Work<> &, uint32_t &result) {
                                    gate->wait();
                                    result = 17;
                                    return outcome;
                                  });
}

/// Has `handler` told when the operation completes.
inline void setCompleted(UIntOperation operation, NSError **error,
                         HRESULT (^handler)(UIntOperation, int asyncStatus)) {
  [operation setCompletedWithHandler:handler error:error];
}

/// An operation that has ended like that.
template <class Result>
id ended(Class type, HRESULT outcome, Stored<Result> result = {}) {
  IAsync<Result, void> *operation = nullptr;
  if (outcome < 0)
    failedAsync<Result>(&operation, outcome);
  else
    completedAsync<Result>(&operation, std::move(result));
  return [type bridgeTransfer:operation];
}

} // namespace wrt::test

#endif
