// What asynchronous operations result in: every kind of result, early, failing, null, thrown.

#include "tests/families/Async.h"
#include "tests/families/Throwing.h"

#import <WRTObjcBridge/Windows.Storage.Streams.h>
#import <WRTObjcBridge/Windows.Storage.h>
#include <abi/Windows.Storage.Streams.abi.h>
#include <abi/Windows.Storage.abi.h>

namespace wrt::test {

namespace {

using FileType = types::StorageFile;

const Cell resultsEarly("async.results.early.refused", [] {
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
});

const Cell resultsByKind("async.results.each_kind.normal", [] {
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
  id<WRTIAsyncOperation__1_WRTStartupTaskState_Bridge> state = ended<types::StartupTaskState>(
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
});

// A null runtime class is reported, a null interface is not; neither is an error.
const Cell resultsNull("async.results.object.null", [] {
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
});

const Cell resultsFailing("async.results.uint32.failing", [] {
  UIntOperation operation = ended<UInt32>([UIntBridge class], status::kBounds);
  __block int seen = -1;
  [operation
      setCompletedWithHandler:^HRESULT(UIntOperation, int asyncStatus) {
        seen = asyncStatus;
        return 0;
      }
                        error:nullptr];
  EXPECT_EQ(WRTAsyncStatusError, seen);
  NSError *error = nil;
  EXPECT_EQ(0u, [operation getResultsWithError:&error]);
  EXPECT_EQ(status::kBounds, [error code]);
  EXPECT_EQ(status::kBounds, [infoOf(operation) getErrorCodeWithError:&error])
      << "a number, not an error";
  EXPECT_EQ(nil, error);
});

// What a component's work throws is a failure of the operation.
const Cell workThrows("async.work.throws.failing", [] {
  PoolDrained drained;
  UIntOperation outOfMemory = [UIntBridge bridgeTransfer:startThrowing(true)];
  UIntOperation other = [UIntBridge bridgeTransfer:startThrowing(false)];
  waitForPool();
  NSError *error = nil;
  [outOfMemory getResultsWithError:&error];
  EXPECT_EQ(status::kOutOfMemory, [error code]);
  [other getResultsWithError:&error];
  EXPECT_EQ(status::kFail, [error code]);
});

} // namespace

} // namespace wrt::test
