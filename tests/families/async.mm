// Asynchronous operations: handlers before and after completion, results, cancellation, progress.

#include "tests/families/Families.h"
#include "tests/families/Throwing.h"

#import <WRTObjcBridge/IAsyncOperation.h>
#import <WRTObjcBridge/IAsyncOperationWithProgress.h>
#import <WRTObjcBridge/Windows.Foundation.h>
#import <WRTObjcBridge/Windows.Storage.Streams.h>
#import <WRTObjcBridge/Windows.Storage.h>
#include <abi/IAsyncOperation.abi.h>
#include <abi/Windows.Storage.Streams.abi.h>
#include <abi/Windows.Storage.abi.h>

#include <array>
#include <thread>

namespace wrt::test {

namespace {

using namespace implement;

using UIntBridge = WRTIAsyncOperation__1_WRTUINT32_Bridge;
using UIntOperation = id<WRTIAsyncOperation__1_WRTUINT32_Bridge>;
using ProgressBridge = WRTIAsyncOperationWithProgress__2_WRTUINT32_WRTUINT32_Bridge;
using ProgressOperation = id<WRTIAsyncOperationWithProgress__2_WRTUINT32_WRTUINT32_Bridge>;
using FileType = ClassRef<abi::IStorageFile, "Windows.Storage.StorageFile">;

id<WRTIAsyncInfoBridge> infoOf(id operation) { return [WRTIAsyncInfoBridge cast:operation]; }

/// An operation that completes with 17 once `gate` is open.
UIntOperation waitingFor(std::shared_ptr<Gate> gate) {
  return startedOperation<UInt32>([UIntBridge class], [gate](const Work<> &, uint32_t &result) {
    gate->wait();
    result = 17;
    return status::kOk;
  });
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

// The handler gets a bridge of the same class for the same object, and the status.
void handlerBefore() {
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
        EXPECT_EQ(kCompleted, asyncStatus);
        EXPECT_EQ(17u, [done getResultsWithError:nullptr]);
        calledGate->open();
        return 0;
      }
                        error:&error];
  EXPECT_EQ(nil, error);
  EXPECT_EQ(kStarted, [infoOf(operation) getStatusWithError:nullptr]);
  gate->open();
  called.wait();
  EXPECT_EQ(kCompleted, [infoOf(operation) getStatusWithError:nullptr]);
  EXPECT_EQ(0, [infoOf(operation) getErrorCodeWithError:&error]);
}

// Set after completion the handler runs before the member returns, on the caller's thread.
void handlerAfter() {
  const auto thread = std::this_thread::get_id();
  __block int calls = 0;
  [static_cast<UIntOperation>(ended<UInt32>([UIntBridge class], status::kOk, 5))
      setCompletedWithHandler:^HRESULT(UIntOperation done, int asyncStatus) {
        EXPECT_EQ(thread, std::this_thread::get_id());
        EXPECT_EQ(kCompleted, asyncStatus);
        EXPECT_EQ(5u, [done getResultsWithError:nullptr]);
        ++calls;
        return 0;
      }
                        error:nullptr];
  EXPECT_EQ(1, calls);
}

void handlerTwice() {
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
}

// What the handler returns becomes the result of the delegate's function.
void handlerResult() {
  PoolDrained drained;
  auto gate = std::make_shared<Gate>();
  UIntOperation operation = waitingFor(gate);
  [operation
      setCompletedWithHandler:^HRESULT(UIntOperation, int asyncStatus) {
        return asyncStatus == 42 ? static_cast<HRESULT>(0x80071234) : 0;
      }
                        error:nullptr];
  auto *raw = static_cast<abi::IAsyncOperation__1_WRTUINT32 *>([static_cast<id>(operation) inner]);
  auto *typed = interfaceCast<IAsyncOperation<UInt32>>(raw);
  ComPtr<CompletedHandler<UInt32, void>> delegate;
  EXPECT_EQ(status::kOk, typed->get_Completed(delegate.put()));
  ASSERT_TRUE(delegate);
  EXPECT_EQ(static_cast<HRESULT>(0x80071234), delegate->Invoke(typed, 42));
  gate->open();
}

void resultsEarly() {
  PoolDrained drained;
  auto gate = std::make_shared<Gate>();
  UIntOperation operation = waitingFor(gate);
  NSError *error = nil;
  EXPECT_EQ(0u, [operation getResultsWithError:&error]);
  EXPECT_EQ(status::kIllegalMethodCall, [error code]);
  gate->open();
  waitForPool();
  EXPECT_EQ(17u, [operation getResultsWithError:&error]);
  EXPECT_EQ(17u, [operation getResultsWithError:&error]) << "can be read again";
  EXPECT_EQ(nil, error);
}

void resultsByKind() {
  expectLeftover({.strings = 1}); // a string result is not released
  NSError *error = nil;
  id<WRTIAsyncOperation__1_WRTHSTRING_Bridge> text = ended<String>(
      [WRTIAsyncOperation__1_WRTHSTRING_Bridge class], status::kOk, StringHolder(u"Grüße"));
  EXPECT_TRUE([[text getResultsWithError:&error] isEqual:@"Grüße"]);
  for (int byte : {0, 1, 2, 0x80, 0xCC}) {
    id<WRTIAsyncOperation__1_WRTbool_Bridge> yes = ended<Boolean>(
        [WRTIAsyncOperation__1_WRTbool_Bridge class], status::kOk, static_cast<uint8_t>(byte));
    EXPECT_EQ(byte ? 1 : 0, static_cast<int>([yes getResultsWithError:&error]));
  }
  id<WRTIAsyncOperation__1_WRTStartupTaskState_Bridge> state =
      ended<Enum<"Windows.ApplicationModel.StartupTaskState">>(
          [WRTIAsyncOperation__1_WRTStartupTaskState_Bridge class], status::kOk, -3);
  EXPECT_EQ(-3, [state getResultsWithError:&error]);

  auto file = make<StandIn<abi::IStorageFile>>();
  id<WRTIAsyncOperation__1_WRTStorageFile_P_Bridge> object =
      ended<FileType>([WRTIAsyncOperation__1_WRTStorageFile_P_Bridge class], status::kOk,
                      ComPtr<abi::IStorageFile>(file->interface()));
  WRTStorageFileBridge *bridge = [object getResultsWithError:&error];
  EXPECT_EQ([WRTStorageFileBridge class], [bridge class]);
  EXPECT_EQ(static_cast<void *>(file->identity()), [bridge inner]);
  EXPECT_EQ(nil, error);
}

// A null runtime class is reported, a null interface is not; neither is an error.
void resultsNull() {
  clearLog();
  NSError *error = staleErrorOfCaller();
  id<WRTIAsyncOperation__1_WRTStorageFile_P_Bridge> object =
      ended<FileType>([WRTIAsyncOperation__1_WRTStorageFile_P_Bridge class], status::kOk);
  EXPECT_EQ(nil, [object getResultsWithError:&error]);
  EXPECT_EQ(nil, error);
  EXPECT_EQ(1u, logRecords().size());
  id<WRTIAsyncOperation__1_WRTIRandomAccessStream_P_Bridge> interface =
      ended<Ref<abi::IRandomAccessStream>>(
          [WRTIAsyncOperation__1_WRTIRandomAccessStream_P_Bridge class], status::kOk);
  EXPECT_EQ(nil, [interface getResultsWithError:&error]);
  EXPECT_EQ(nil, error);
  EXPECT_EQ(1u, logRecords().size());
}

void resultsFailing() {
  UIntOperation operation = ended<UInt32>([UIntBridge class], status::kBounds);
  __block int seen = -1;
  [operation
      setCompletedWithHandler:^HRESULT(UIntOperation, int asyncStatus) {
        seen = asyncStatus;
        return 0;
      }
                        error:nullptr];
  EXPECT_EQ(kError, seen);
  NSError *error = nil;
  EXPECT_EQ(0u, [operation getResultsWithError:&error]);
  EXPECT_EQ(status::kBounds, [error code]);
  EXPECT_EQ(status::kBounds, [infoOf(operation) getErrorCodeWithError:&error])
      << "a number, not an error";
  EXPECT_EQ(nil, error);
}

// What a component's work throws is a failure of the operation.
void workThrows() {
  PoolDrained drained;
  UIntOperation outOfMemory = [UIntBridge bridgeTransfer:startThrowing(true)];
  UIntOperation other = [UIntBridge bridgeTransfer:startThrowing(false)];
  waitForPool();
  NSError *error = nil;
  [outOfMemory getResultsWithError:&error];
  EXPECT_EQ(status::kOutOfMemory, [error code]);
  [other getResultsWithError:&error];
  EXPECT_EQ(status::kFail, [error code]);
}

// The status changes at once, the handler is called when the work has ended, with no result.
void cancelRunning() {
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
        EXPECT_FALSE(
            never.wait_for(lock, work.token(), std::chrono::seconds(30), [] { return false; }));
        EXPECT_TRUE(work.isCanceled());
        proceed->wait();
        result = 5;
        return status::kOk;
      });
  [operation
      setCompletedWithHandler:^HRESULT(UIntOperation done, int asyncStatus) {
        EXPECT_EQ(kCanceled, asyncStatus);
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
  EXPECT_EQ(kCanceled, [infoOf(operation) getStatusWithError:nullptr]);
  [infoOf(operation) closeWithError:&error];
  EXPECT_EQ(status::kIllegalStateChange, [error code]) << "the work has not ended";
  proceed->open();
  called.wait();
  [infoOf(operation) cancelWithError:&error];
  EXPECT_EQ(nil, error) << "again is no failure";
}

// Cancellation, completion, handler and results on threads of their own: one outcome, told once.
void cancelRaces() {
  PoolDrained drained;
  std::atomic<int> calls = 0;
  std::atomic<int> *const counter = &calls;
  constexpr int kOperations = 200;
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
            EXPECT_TRUE(asyncStatus == kCompleted ? result == 17 && !error
                                                  : asyncStatus == kCanceled && error);
            ++*counter;
            return 0;
          }
                            error:nullptr];
      canceling.join();
    }
  }
  waitForPool();
  EXPECT_EQ(kOperations, calls);
}

void closed() {
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
  EXPECT_EQ(0u, [infoOf(operation) getIdWithError:&error]);
  EXPECT_EQ(status::kIllegalMethodCall, [error code]);
  [infoOf(operation) cancelWithError:&error];
  EXPECT_EQ(status::kIllegalMethodCall, [error code]);
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
}

void progress() {
  PoolDrained drained;
  auto gate = std::make_shared<Gate>();
  Gate called;
  Gate *const calledGate = &called;
  std::vector<unsigned> reports;
  std::vector<unsigned> *const seen = &reports;
  ProgressOperation operation = startedOperation<UInt32, UInt32>(
      [ProgressBridge class], [gate](const Work<UInt32> &work, uint32_t &result) {
        gate->wait();
        for (uint32_t done : {0u, 50u, 0xFFFFFFFFu})
          work.report(done);
        result = 9;
        return status::kOk;
      });
  void *const object = [static_cast<id>(operation) inner];
  NSError *error = staleErrorOfCaller();
  [operation
      setProgressWithHandler:^HRESULT(ProgressOperation, unsigned int) {
        ADD_FAILURE() << "this handler is replaced";
        return 0;
      }
                       error:&error];
  EXPECT_EQ(nil, error);
  [operation
      setProgressWithHandler:^HRESULT(ProgressOperation running, unsigned int done) {
        EXPECT_EQ([ProgressBridge class], [static_cast<id>(running) class]);
        EXPECT_EQ(object, [static_cast<id>(running) inner]);
        seen->push_back(done);
        return 0;
      }
                       error:&error];
  [operation
      setCompletedWithHandler:^HRESULT(ProgressOperation done, int) {
        EXPECT_EQ(9u, [done getResultsWithError:nullptr]);
        calledGate->open();
        return 0;
      }
                        error:&error];
  gate->open();
  called.wait();
  EXPECT_EQ((std::vector<unsigned>{0, 50, 0xFFFFFFFF}), reports);
}

// A progress handler that is set when there is nothing to report any more is not kept: here it
// would keep its own operation.
void progressAfterEnd() {
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
}

void thousands() {
  PoolDrained drained;
  std::atomic<int64_t> sum = 0;
  std::atomic<int64_t> *const total = &sum;
  constexpr int kOperations = 5000;
  @autoreleasepool {
    for (uint32_t i = 0; i < kOperations; ++i) {
      ProgressOperation operation = startedOperation<UInt32, UInt32>(
          [ProgressBridge class], [i](const Work<UInt32> &work, uint32_t &result) {
            work.report(i);
            result = i;
            return i % 7 == 0 ? status::kFail : status::kOk;
          });
      [operation
          setProgressWithHandler:^HRESULT(ProgressOperation, unsigned int) {
            return 0;
          }
                           error:nullptr];
      [operation
          setCompletedWithHandler:^HRESULT(ProgressOperation done, int asyncStatus) {
            NSError *error = nil;
            const unsigned int result = [done getResultsWithError:&error];
            EXPECT_EQ(asyncStatus == kError, error != nil);
            *total += 1'000'000 + result;
            return 0;
          }
                            error:nullptr];
    }
  }
  waitForPool();
  int64_t expected = 0;
  for (int64_t i = 0; i < kOperations; ++i)
    expected += 1'000'000 + (i % 7 == 0 ? 0 : i);
  EXPECT_EQ(expected, sum);
}

const Cell cells[] = {
    {"async.handler.set_before_completion.normal", handlerBefore},
    {"async.handler.set_after_completion.normal", handlerAfter},
    {"async.handler.set_twice.refused", handlerTwice},
    {"async.handler.result.normal", handlerResult},
    {"async.results.early.refused", resultsEarly},
    {"async.results.each_kind.normal", resultsByKind},
    {"async.results.object.null", resultsNull},
    {"async.results.uint32.failing", resultsFailing},
    {"async.work.throws.failing", workThrows},
    {"async.cancel.running.normal", cancelRunning},
    {"async.cancel.other_threads.normal", cancelRaces},
    {"async.close.all.normal", closed},
    {"async.progress.reports.normal", progress},
    {"async.progress.after_end.normal", progressAfterEnd},
    {"async.all.thousands.normal", thousands},
};

} // namespace

} // namespace wrt::test
