// What asynchronous operations result in: every kind of result, early, failing, null, thrown.

#include "tests/families/Async.h"

#import <WRTObjcBridge/Windows.Storage.Streams.h>
#import <WRTObjcBridge/Windows.Storage.h>
#include <abi/Windows.Storage.Streams.abi.h>
#include <abi/Windows.Storage.abi.h>

namespace wrt::test {

/// An operation (+1) whose work throws: out of memory, or something else.
implement::IAsyncOperation<implement::UInt32> *startThrowing(bool outOfMemory);

namespace {

using FileType = types::StorageFile;

using Text = WRTIAsyncOperation__1_WRTHSTRING_Bridge;
using Truth = WRTIAsyncOperation__1_WRTbool_Bridge;
using State = WRTIAsyncOperation__1_WRTStartupTaskState_Bridge;
using File = id<WRTIAsyncOperation__1_WRTStorageFile_P_Bridge>;
using Stream = id<WRTIAsyncOperation__1_WRTIRandomAccessStream_P_Bridge>;

const Cell resultsByKind("async.results.each_kind.normal", [] {
  expectLeftover({.strings = 1}); // a string result is not released
  NSError *error = nil;
  Text *text = ended<String>([Text class], status::kOk, StringHolder(u"Grüße"));
  EXPECT_TRUE([[text getResultsWithError:&error] isEqual:@"Grüße"]);
  for (int byte : {0, 1, 2, 0x80, 0xCC}) {
    Truth *truth = ended<Boolean>([Truth class], status::kOk, static_cast<uint8_t>(byte));
    EXPECT_EQ(byte ? 1 : 0, static_cast<int>([truth getResultsWithError:&error]));
  }
  State *state = ended<types::StartupTaskState>([State class], status::kOk, -3);
  EXPECT_EQ(-3, [state getResultsWithError:&error]);

  auto file = make<StandIn<abi::IStorageFile>>();
  File object = ended<FileType>([WRTIAsyncOperation__1_WRTStorageFile_P_Bridge class], status::kOk,
                                ComPtr<abi::IStorageFile>(file->interface()));
  WRTStorageFileBridge *bridge = [object getResultsWithError:&error];
  EXPECT_EQ([WRTStorageFileBridge class], [bridge class]);
  EXPECT_EQ(static_cast<void *>(file->identity()), [bridge inner]);
  EXPECT_EQ(nil, error);
});

// A null runtime class is reported, a null interface is not; neither is an error.
const Cell resultsNull("async.results.object.null", [] {
  NSError *error = staleError();
  File object = ended<FileType>([WRTIAsyncOperation__1_WRTStorageFile_P_Bridge class], status::kOk);
  EXPECT_EQ(nil, [object getResultsWithError:&error]);
  EXPECT_EQ(nil, error);
  EXPECT_EQ(1u, logRecords().size());
  Stream interface = ended<Ref<abi::IRandomAccessStream>>(
      [WRTIAsyncOperation__1_WRTIRandomAccessStream_P_Bridge class], status::kOk);
  EXPECT_EQ(nil, [interface getResultsWithError:&error]);
  EXPECT_EQ(nil, error);
  EXPECT_EQ(1u, logRecords().size());
});

// What a component's work throws is a failure of the operation.
const Cell workThrows("async.work.throws.failing", [] {
  PoolDrained drained;
  UIntOperation outOfMemory = [UIntBridge bridgeTransfer:startThrowing(true)];
  UIntOperation other = [UIntBridge bridgeTransfer:startThrowing(false)];
  waitForPool();
  EXPECT_FAILS(status::kOutOfMemory, [outOfMemory getResultsWithError:&failure]);
  EXPECT_FAILS(status::kFail, [other getResultsWithError:&failure]);
});

} // namespace

} // namespace wrt::test
