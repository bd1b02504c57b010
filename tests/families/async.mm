// Asynchronous operations: handlers before and after completion, cancellation, progress.

#include "tests/families/Async.h"

#import <WRTObjcBridge/IAsyncOperationWithProgress.h>

#include <thread>

namespace wrt::test {

namespace {

using ProgressBridge = WRTIAsyncOperationWithProgress__2_WRTUINT32_WRTUINT32_Bridge;
using ProgressOperation = id<WRTIAsyncOperationWithProgress__2_WRTUINT32_WRTUINT32_Bridge>;

// The handler gets a bridge of the same class for the same object, and the status. Results can be
// read from then on, as often as one likes.
const Cell handlerBefore("async.handler.set_before_completion.normal", [] {
  PoolDrained drained;
  auto gate = std::make_shared<Gate>();
  const auto called = std::make_shared<Gate>();
  UIntOperation operation = waitingFor(gate);
  void *const object = [static_cast<id>(operation) inner];
  NSError *error = staleError();
  setCompleted(operation, &error, ^HRESULT(UIntOperation done, int asyncStatus) {
    EXPECT_EQ([UIntBridge class], [static_cast<id>(done) class]);
    EXPECT_EQ(object, [static_cast<id>(done) inner]);
    EXPECT_EQ(WRTAsyncStatusCompleted, asyncStatus);
    EXPECT_EQ(17u, [done getResultsWithError:nullptr]);
    called->open();
    return 0;
  });
  EXPECT_EQ(nil, error);
  EXPECT_EQ(WRTAsyncStatusStarted, [infoOf(operation) getStatusWithError:nullptr]);
  EXPECT_FAILS(status::kIllegalMethodCall, [operation getResultsWithError:&failure]);
  gate->open();
  called->wait();
  EXPECT_EQ(WRTAsyncStatusCompleted, [infoOf(operation) getStatusWithError:nullptr]);
  EXPECT_EQ(0, [infoOf(operation) getErrorCodeWithError:&error]);
  EXPECT_EQ(17u, [operation getResultsWithError:&error]);
  EXPECT_EQ(nil, error);
});

// Set after completion the handler runs before the member returns, on the caller's thread.
const Cell handlerAfter("async.handler.set_after_completion.normal", [] {
  const auto thread = std::this_thread::get_id();
  for (HRESULT outcome : {status::kOk, status::kBounds}) {
    __block int calls = 0;
    UIntOperation operation = ended<UInt32>([UIntBridge class], outcome, 5);
    setCompleted(operation, nullptr, ^HRESULT(UIntOperation done, int asyncStatus) {
      EXPECT_EQ(thread, std::this_thread::get_id());
      EXPECT_EQ(outcome < 0 ? WRTAsyncStatusError : WRTAsyncStatusCompleted, asyncStatus);
      NSError *error = nil;
      EXPECT_EQ(outcome < 0 ? 0u : 5u, [done getResultsWithError:&error]);
      EXPECT_EQ(outcome, [error code]);
      ++calls;
      return 0;
    });
    EXPECT_EQ(1, calls);
    NSError *error = staleError();
    EXPECT_EQ(outcome, [infoOf(operation) getErrorCodeWithError:&error]);
    EXPECT_EQ(nil, error) << "a number, not an error";
  }
});

const Cell handlerTwice("async.handler.set_twice.refused", [] {
  PoolDrained drained;
  auto gate = std::make_shared<Gate>();
  const auto calls = std::make_shared<std::atomic<int>>(0);
  UIntOperation operation = waitingFor(gate);
  const auto count = ^HRESULT(UIntOperation, int) {
    ++*calls;
    return 0;
  };
  setCompleted(operation, nullptr, count);
  EXPECT_FAILS(status::kIllegalDelegateAssignment, setCompleted(operation, &failure, count));
  gate->open();
  waitForPool();
  EXPECT_EQ(1, *calls) << "the refused handler is not called";
  EXPECT_FAILS(status::kIllegalDelegateAssignment, setCompleted(operation, &failure, count));
  EXPECT_EQ(1, *calls);
});

// The status changes at once, the handler is called when the work has ended, with no result.
const Cell cancelRunning("async.cancel.running.normal", [] {
  PoolDrained drained;
  auto started = std::make_shared<Gate>(), proceed = std::make_shared<Gate>();
  const auto called = std::make_shared<Gate>();
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
  setCompleted(operation, nullptr, ^HRESULT(UIntOperation done, int asyncStatus) {
    EXPECT_EQ(WRTAsyncStatusCanceled, asyncStatus);
    EXPECT_FAILS(status::kAbort, [done getResultsWithError:&failure]);
    called->open();
    return 0;
  });
  started->wait();
  NSError *error = staleError();
  [infoOf(operation) cancelWithError:&error];
  EXPECT_EQ(nil, error);
  EXPECT_EQ(WRTAsyncStatusCanceled, [infoOf(operation) getStatusWithError:nullptr]);
  EXPECT_FAILS(status::kIllegalStateChange, [infoOf(operation) closeWithError:&failure])
      << "the work has not ended";
  proceed->open();
  called->wait();
  [infoOf(operation) cancelWithError:&error];
  EXPECT_EQ(nil, error) << "again is no failure";
});

// Cancellation, completion, handler and results on threads of their own: one outcome, told once.
const Cell cancelRaces("async.cancel.other_threads.normal", [] {
  PoolDrained drained;
  const auto calls = std::make_shared<std::atomic<int>>(0);
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
      setCompleted(operation, nullptr, ^HRESULT(UIntOperation done, int asyncStatus) {
        NSError *error = nil;
        const unsigned int result = [done getResultsWithError:&error];
        EXPECT_TRUE(asyncStatus == WRTAsyncStatusCompleted
                        ? result == 17 && !error
                        : asyncStatus == WRTAsyncStatusCanceled && error);
        ++*calls;
        return 0;
      });
      canceling.join();
    }
  }
  waitForPool();
  EXPECT_EQ(kOperations, *calls);
});

const Cell closed("async.close.all.normal", [] {
  PoolDrained drained;
  auto gate = std::make_shared<Gate>();
  UIntOperation operation = waitingFor(gate);
  id<WRTIAsyncInfoBridge> info = infoOf(operation);
  EXPECT_FAILS(status::kIllegalStateChange, [info closeWithError:&failure]) << "while it runs";
  gate->open();
  waitForPool();
  for (int time = 0; time < 2; ++time) {
    NSError *error = staleError();
    [info closeWithError:&error];
    EXPECT_EQ(nil, error) << "again is no failure";
  }
  EXPECT_FAILS(status::kIllegalMethodCall, [info getStatusWithError:&failure]);
  EXPECT_FAILS(status::kIllegalMethodCall, [operation getResultsWithError:&failure]);
  const auto never = ^HRESULT(UIntOperation, int) {
    ADD_FAILURE() << "called after all";
    return 0;
  };
  EXPECT_FAILS(status::kIllegalMethodCall, setCompleted(operation, &failure, never));
});

// A progress handler that is set when there is nothing to report any more is not kept: here it
// would keep its own operation.
const Cell progressAfterEnd("async.progress.after_end.normal", [] {
  PoolDrained drained;
  ProgressOperation operation = startedOperation<UInt32, UInt32>(
      [ProgressBridge class], [](const Work<UInt32> &, uint32_t &) { return status::kOk; });
  waitForPool();
  NSError *error = nil;
  const auto handler = ^HRESULT(ProgressOperation, unsigned int) {
    [operation getResultsWithError:nullptr];
    return 0;
  };
  [operation setProgressWithHandler:handler error:&error];
  EXPECT_EQ(nil, error);
});

} // namespace

} // namespace wrt::test
