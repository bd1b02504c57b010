// Waiting, asking first and the texts of errors.

#include "tests/families/Async.h"

#import <WRTObjcBridge/Windows.Storage.h>
#import <WRTSupport/WRTSupport.h>

namespace wrt::test {

namespace {

using Text = WRTIAsyncOperation__1_WRTHSTRING_Bridge;
using Number = UIntBridge;
using Progressing = WRTIAsyncOperationWithProgress__2_WRTUINT32_WRTUINT32_Bridge;

/// Has ended with 17 or with a failure.
Number *endedNumber(HRESULT outcome) { return ended<UInt32>([Number class], outcome, 17); }

WRTIAsyncActionBridge *action(HRESULT outcome) {
  return startedOperation<>([WRTIAsyncActionBridge class], [outcome](const Work<> &) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return outcome;
  });
}

// Ended before, ending elsewhere, failing; each gives the operation's own type and error.
const Cell awaitEachKind("support.await.each_kind.normal", [] {
  PoolDrained drained;
  expectLeftover({.strings = 1}); // a string result is not released
  NSError *error = staleError();
  EXPECT_EQ(17u, WRTAwait(endedNumber(status::kOk), &error));
  EXPECT_EQ(nil, error);
  EXPECT_FAILS(status::kBounds, WRTAwait(endedNumber(status::kBounds), &failure));

  auto gate = std::make_shared<Gate>();
  Number *running = static_cast<Number *>(waitingFor(gate));
  std::thread opener([gate] {
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    gate->open();
  });
  EXPECT_EQ(17u, WRTAwait(running, &error));
  EXPECT_EQ(nil, error);
  opener.join();

  Text *text = ended<String>([Text class], status::kOk, StringHolder(u"Grüße"));
  NSString *const typed = WRTAwait(text, &error);
  EXPECT_TRUE([typed isEqual:@"Grüße"]);
  EXPECT_TRUE(WRTAwait(action(status::kOk), nullptr));
  EXPECT_FAILS(status::kFail, WRTAwait(action(status::kFail), &failure));
});

// The wait ends at the limit, the work is told to stop, and its end later harms nobody.
const Cell awaitLimit("support.await.limit.cancels", [] {
  PoolDrained drained;
  auto gate = std::make_shared<Gate>();
  auto stopped = std::make_shared<std::atomic<bool>>(false);
  Number *operation =
      startedOperation<UInt32>([Number class], [gate, stopped](const Work<> &work, uint32_t &) {
        gate->wait();
        *stopped = work.isCanceled();
        return status::kOk;
      });
  @autoreleasepool {
    NSDate *const soon = [NSDate dateWithTimeIntervalSinceNow:0.02];
    EXPECT_FAILS(status::kAbort, WRTAwaitUntil(operation, soon, &failure));
  }
  gate->open();
  waitForPool();
  EXPECT_TRUE(*stopped);
  NSError *error = staleError();
  EXPECT_EQ(17u, WRTAwaitUntil(endedNumber(status::kOk), [NSDate distantPast], &error));
  EXPECT_EQ(nil, error);
});

const Cell awaitHostile("support.await.hostile.refused", [] {
  Number *const none = nil;
  EXPECT_FAILS(status::kPointer, WRTAwait(none, &failure));
  NSError *error = staleError();
  WRTAwait(none, &error);
  EXPECT_EQ(1, [error code]) << "why there is no operation";

  Number *const stranger = strangerOf([Number class]);
  EXPECT_FAILS(kNoInterface, WRTAwait(stranger, &failure));
  Number *closed = endedNumber(status::kOk);
  [[WRTIAsyncInfoBridge cast:closed] closeWithError:nullptr];
  EXPECT_FAILS(status::kIllegalMethodCall, WRTAwait(closed, &failure));
  // An action's bridge over an operation with a result has IAsyncInfo but not its interface.
  WRTIAsyncActionBridge *const other = [WRTIAsyncActionBridge cast:endedNumber(status::kOk)];
  EXPECT_FAILS(kNoInterface, WRTAwait(other, &failure));
});

const Cell thenEachKind("support.then.each_kind.normal", [] {
  PoolDrained drained;
  __block int calls = 0;
  WRTThen(endedNumber(status::kOk), ^(unsigned result, NSError *failure) {
    EXPECT_EQ(17u, result);
    EXPECT_EQ(nil, failure);
    ++calls;
  });
  EXPECT_EQ(1, calls) << "at once";
  for (Number *wrong :
       {static_cast<Number *>(nil), static_cast<Number *>(strangerOf([Number class]))})
    WRTThen(wrong, ^(unsigned, NSError *failure) {
      EXPECT_EQ(wrong ? kNoInterface : status::kPointer, [failure code]);
      ++calls;
    });
  EXPECT_EQ(3, calls);

  const auto here = std::this_thread::get_id();
  auto gate = std::make_shared<Gate>();
  const auto told = std::make_shared<Gate>();
  WRTThen(static_cast<Number *>(waitingFor(gate, status::kBounds)),
          ^(unsigned result, NSError *failure) {
            EXPECT_EQ(0u, result);
            EXPECT_EQ(status::kBounds, [failure code]);
            EXPECT_NE(here, std::this_thread::get_id());
            told->open();
          });
  gate->open();
  told->wait();
  const auto acted = std::make_shared<Gate>();
  WRTThen(action(status::kFail), ^(NSError *failure) {
    EXPECT_EQ(status::kFail, [failure code]);
    acted->open();
  });
  acted->wait();
});

const Cell progressReports("support.progress.reports.normal", [] {
  PoolDrained drained;
  auto gate = std::make_shared<Gate>();
  Progressing *operation = startedOperation<UInt32, UInt32>(
      [Progressing class], [gate](const Work<UInt32> &work, uint32_t &result) {
        gate->wait();
        work.report(40);
        work.report(100);
        result = 3;
        return status::kOk;
      });
  __block unsigned sum = 0;
  NSError *error = nil;
  const auto add = ^(unsigned percent) {
    sum += percent;
  };
  EXPECT_TRUE(WRTOnProgress(operation, add, &error));
  gate->open();
  EXPECT_EQ(3u, WRTAwait(operation, &error));
  EXPECT_EQ(140u, sum);
  Progressing *const stranger = strangerOf([Progressing class]);
  EXPECT_FAILS(kNoInterface, WRTOnProgress(stranger, add, &failure));
});

// What is silent otherwise is an error; what is no failure leaves none.
const Cell tryMembers("support.try.silent_members.normal", [] {
  WRTStorageFolderBridge *stranger = strangerOf([WRTStorageFolderBridge class]);
  NSError *error = nil;
  EXPECT_EQ(nil, [stranger getNameWithError:&error]);
  EXPECT_EQ(nil, error) << "the silence that WRTTry is for";
  EXPECT_FAILS(kNoInterface, WRTTry([stranger getNameWithError:&failure], &failure));
  WRTIAsyncInfoBridge *const info = strangerOf([WRTIAsyncInfoBridge class]);
  EXPECT_FAILS(kNoInterface, WRTTry([info cancelWithError:&failure], &failure)); // has no result
  EXPECT_EQ(1,
            WRTTry([[WRTIAsyncInfoBridge cast:endedNumber(status::kOk)] getStatusWithError:&error],
                   &error));
  EXPECT_EQ(nil, error);

  clearLog();
  Number *operation = endedNumber(status::kOk);
  EXPECT_TRUE(WRTSupports(operation, @protocol(WRTIAsyncOperation__1_WRTUINT32_Bridge)));
  EXPECT_TRUE(WRTSupports(operation, @protocol(WRTIAsyncInfoBridge)));
  EXPECT_FALSE(WRTSupports(operation, @protocol(WRTIAsyncActionBridge)));
  EXPECT_FALSE(WRTSupports(operation, @protocol(NSObject)));
  EXPECT_FALSE(WRTSupports(nil, @protocol(WRTIAsyncInfoBridge)));
  EXPECT_EQ(0u, logRecords().size()) << "asking is no failure";
});

const Cell errorTexts("support.errors.texts.normal", [] {
  const auto text = [](uint32_t status) {
    NSError *error = [NSError errorWithDomain:@"WRT"
                                         code:static_cast<HRESULT>(status)
                                     userInfo:nil];
    return std::string([WRTErrorDescription(error) UTF8String]);
  };
  EXPECT_EQ("access denied (E_ACCESSDENIED, 0x80070005)", text(0x80070005));
  EXPECT_EQ("not well-formed XML (0xC00CE556)", text(0xC00CE556));
  EXPECT_EQ("failed (0x81234567)", text(0x81234567));
  EXPECT_TRUE([WRTErrorDescription(nil) isEqual:@"no error"]);
  EXPECT_TRUE([WRTErrorDescription(staleError()) isEqual:[staleError() description]]);
});

// Class, runtime class and identity, of which the last is the same for all bridges of an object.
const Cell descriptions("support.descriptions.all.normal", [] {
  WRTUriBridge *uri = [WRTUriBridge createUriWithUri:@"https://example.org" error:nullptr];
  void *identity = [uri _WRTIUnknownWithError:nullptr];
  static_cast<abi::IUnknown *>(identity)->Release();
  NSString *full = [NSString stringWithFormat:@"<WRTUriBridge %p: Windows.Foundation.Uri %p>",
                                              static_cast<void *>(uri), identity];
  EXPECT_TRUE([[uri description] isEqual:full]);
  NSString *end = [NSString stringWithFormat:@" %p>", identity];
  WRTIStringableBridge *other =
      [WRTIStringableBridge bridgeTransfer:[uri _WRTIStringableWithError:nullptr]];
  EXPECT_NE(identity, [other inner]);
  EXPECT_TRUE([[other description] hasSuffix:end]);
  id stranger = strangerOf([WRTIStringableBridge class]);
  EXPECT_TRUE([[stranger description] hasPrefix:@"<WRTIStringableBridge 0x"]);
  EXPECT_TRUE([[[WRTKeyValuePair pairWithKey:@"a" value:@1] description] isEqual:@"a = 1"]);
});

} // namespace

} // namespace wrt::test
