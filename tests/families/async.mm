// Asynchronous operations: handlers before and after completion, cancellation, progress.

#include "tests/families/Async.h"

#import <WRTObjcBridge/IAsyncOperationWithProgress.h>

#include <thread>

namespace wrt::test {

namespace {

using ProgressBridge = WRTIAsyncOperationWithProgress__2_WRTUINT32_WRTUINT32_Bridge;
using ProgressOperation = id<WRTIAsyncOperationWithProgress__2_WRTUINT32_WRTUINT32_Bridge>;

// The handler gets a bridge of the same class for the same object, and the status.
const Cell handlerBefore("async.handler.set_before_completion.normal", [] {
  PoolDrained drained;
  auto gate = std::make_shared<Gate>();
  Gate called;
  Gate *const calledGate = &called;
  UIntOperation operation = waitingFor(gate);
  void *const object = [static_cast<id>(operation) inner];
  NSError *error = staleErrorOfCaller();
  [operation
      setCompletedWithHandler:^HRESULT(UIntOperation done, int asyncStatus) {
        EXPECT_EQ([UIntBridge class], [static_cast<id>(done) class]);
        EXPECT_EQ(object, [static_cast<id>(done) inner]);
        EXPECT_EQ(WRTAsyncStatusCompleted, asyncStatus);
        EXPECT_EQ(17u, [done getResultsWithError:nullptr]);
        calledGate->open();
        return 0;
      }
                        error:&error];
  EXPECT_EQ(nil, error);
  EXPECT_EQ(WRTAsyncStatusStarted, [infoOf(operation) getStatusWithError:nullptr]);
  gate->open();
  called.wait();
  EXPECT_EQ(WRTAsyncStatusCompleted, [infoOf(operation) getStatusWithError:nullptr]);
  EXPECT_EQ(0, [infoOf(operation) getErrorCodeWithError:&error]);
});

// Set after completion the handler runs before the member returns, on the caller's thread.
const Cell handlerAfter("async.handler.set_after_completion.normal", [] {
  const auto thread = std::this_thread::get_id();
  __block int calls = 0;
  [static_cast<UIntOperation>(ended<UInt32>([UIntBridge class], status::kOk, 5))
      setCompletedWithHandler:^HRESULT(UIntOperation done, int asyncStatus) {
        EXPECT_EQ(thread, std::this_thread::get_id());
        EXPECT_EQ(WRTAsyncStatusCompleted, asyncStatus);
        EXPECT_EQ(5u, [done getResultsWithError:nullptr]);
        ++calls;
        return 0;
      }
                        error:nullptr];
  EXPECT_EQ(1, calls);
});

const Cell handlerTwice("async.handler.set_twice.refused", [] {
  PoolDrained drained;
  auto gate = std::make_shared<Gate>();
  std::atomic<int> calls = 0;
  std::atomic<int> *const counter = &calls;
  UIntOperation operation = waitingFor(gate);
  const auto count = ^HRESULT(UIntOperation, int) {
    ++*counter;
    return 0;
  };
  [operation setCompletedWithHandler:count error:nullptr];
  NSError *error = nil;
  [operation setCompletedWithHandler:count error:&error];
  EXPECT_EQ(status::kIllegalDelegateAssignment, [error code]);
  gate->open();
  waitForPool();
  EXPECT_EQ(1, calls) << "the refused handler is not called";
  error = nil;
  [operation setCompletedWithHandler:count error:&error];
  EXPECT_EQ(status::kIllegalDelegateAssignment, [error code]);
  EXPECT_EQ(1, calls);
});

// The status changes at once, the handler is called when the work has ended, with no result.
const Cell cancelRunning("async.cancel.running.normal", [] {
  PoolDrained drained;
  auto started = std::make_shared<Gate>(), proceed = std::make_shared<Gate>();
  Gate called;
  Gate *const calledGate = &called;
  UIntOperation operation = startedOperation<UInt32>(
      [UIntBridge class], [started, proceed](const Work<> &work, uint32_t &result) -> HRESULT {
        std::mutex mutex;
        std::unique_lock lock(mutex);
        started->open();
        std::condition_variable_any never;
        EXPECT_FALSE(never.wait_for(lock, work.token(), patience(), [] { return false; }));
        EXPECT_TRUE(work.isCanceled());
        proceed->wait();
        result = 5;
        return status::kOk;
      });
  [operation
      setCompletedWithHandler:^HRESULT(UIntOperation done, int asyncStatus) {
        EXPECT_EQ(WRTAsyncStatusCanceled, asyncStatus);
        NSError *error = nil;
        EXPECT_EQ(0u, [done getResultsWithError:&error]);
        EXPECT_EQ(status::kAbort, [error code]);
        calledGate->open();
        return 0;
      }
                        error:nullptr];
  started->wait();
  NSError *error = staleErrorOfCaller();
  [infoOf(operation) cancelWithError:&error];
  EXPECT_EQ(nil, error);
  EXPECT_EQ(WRTAsyncStatusCanceled, [infoOf(operation) getStatusWithError:nullptr]);
  [infoOf(operation) closeWithError:&error];
  EXPECT_EQ(status::kIllegalStateChange, [error code]) << "the work has not ended";
  proceed->open();
  called.wait();
  [infoOf(operation) cancelWithError:&error];
  EXPECT_EQ(nil, error) << "again is no failure";
});

// Cancellation, completion, handler and results on threads of their own: one outcome, told once.
const Cell cancelRaces("async.cancel.other_threads.normal", [] {
  PoolDrained drained;
  std::atomic<int> calls = 0;
  std::atomic<int> *const counter = &calls;
  const int kOperations = runsForItsEnd() ? 20 : 200;
  for (int i = 0; i < kOperations; ++i) {
    @autoreleasepool {
      UIntOperation operation = startedOperation<UInt32>(
          [UIntBridge class], [](const Work<> &work, uint32_t &result) -> HRESULT {
            result = 17;
            return work.isCanceled() ? status::kAbort : status::kOk;
          });
      std::thread canceling([info = infoOf(operation)] {
        @autoreleasepool {
          [info cancelWithError:nullptr];
        }
      });
      [operation
          setCompletedWithHandler:^HRESULT(UIntOperation done, int asyncStatus) {
            NSError *error = nil;
            const unsigned int result = [done getResultsWithError:&error];
            EXPECT_TRUE(asyncStatus == WRTAsyncStatusCompleted
                            ? result == 17 && !error
                            : asyncStatus == WRTAsyncStatusCanceled && error);
            ++*counter;
            return 0;
          }
                            error:nullptr];
      canceling.join();
    }
  }
  waitForPool();
  EXPECT_EQ(kOperations, calls);
});

const Cell closed("async.close.all.normal", [] {
  PoolDrained drained;
  auto gate = std::make_shared<Gate>();
  UIntOperation operation = waitingFor(gate);
  NSError *error = nil;
  [infoOf(operation) closeWithError:&error];
  EXPECT_EQ(status::kIllegalStateChange, [error code]) << "while it runs";
  gate->open();
  waitForPool();
  [infoOf(operation) closeWithError:&error];
  EXPECT_EQ(nil, error);
  [infoOf(operation) closeWithError:&error];
  EXPECT_EQ(nil, error) << "again is no failure";
  EXPECT_EQ(0, [infoOf(operation) getStatusWithError:&error]);
  EXPECT_EQ(status::kIllegalMethodCall, [error code]);
  error = nil;
  EXPECT_EQ(0u, [operation getResultsWithError:&error]);
  EXPECT_EQ(status::kIllegalMethodCall, [error code]);
  __block int calls = 0;
  [operation
      setCompletedWithHandler:^HRESULT(UIntOperation, int) {
        ++calls;
        return 0;
      }
                        error:&error];
  EXPECT_EQ(status::kIllegalMethodCall, [error code]);
  EXPECT_EQ(0, calls);
});

// A progress handler that is set when there is nothing to report any more is not kept: here it
// would keep its own operation.
const Cell progressAfterEnd("async.progress.after_end.normal", [] {
  PoolDrained drained;
  ProgressOperation operation = startedOperation<UInt32, UInt32>(
      [ProgressBridge class], [](const Work<UInt32> &, uint32_t &) { return status::kOk; });
  waitForPool();
  NSError *error = nil;
  [operation
      setProgressWithHandler:^HRESULT(ProgressOperation, unsigned int) {
        [operation getResultsWithError:nullptr];
        return 0;
      }
                       error:&error];
  EXPECT_EQ(nil, error);
});

} // namespace

} // namespace wrt::test
