#import <Foundation/Foundation.h>

#include "platform/linux/bridge/Delegate.h"
#include "platform/linux/implement/ComPtr.h"
#include "platform/linux/tests/LedgerTest.h"
#include "platform/linux/tests/TestInterfaces.h"
#include "platform/linux/tests/Threads.h"

#include <ObjCRuntime.h>
#include <WRTUnknown.h>
#include <atomic>
#include <memory>

namespace {
std::atomic<int> liveAutoreleased;
}

@interface WRTDelegateTestObject : NSObject
@end

@implementation WRTDelegateTestObject
- (id)init {
  ++liveAutoreleased;
  return [super init];
}
- (void)dealloc {
  --liveAutoreleased;
  [super dealloc];
}
@end

namespace wrt::test {
namespace {

using implement::ComPtr;

using HandlerBlock = HRESULT (^)(void *, int32_t);

ComPtr<Handler> makeHandler(HandlerBlock block) {
  void *delegate = makeDelegate<HRESULT(void *, int32_t)>(Handler::kIid, static_cast<id>(block));
  return ComPtr<Handler>::adopt(static_cast<Handler *>(delegate));
}

class Delegates : public LedgerTest {};

TEST_F(Delegates, InvokeCallsTheBlockAndGivesItsResultBack) {
  __block void *sender = nullptr;
  __block int32_t value = 0;
  const auto handler = makeHandler(^HRESULT(void *blockSender, int32_t blockValue) {
    sender = blockSender;
    value = blockValue;
    return status::kBounds;
  });
  auto *expected = reinterpret_cast<abi::IInspectable *>(&value);
  EXPECT_EQ(handler->Invoke(expected, -5), status::kBounds);
  EXPECT_EQ(sender, expected);
  EXPECT_EQ(value, -5);
}

TEST_F(Delegates, ArgumentsOfEveryKindArrive) {
  struct Pair {
    int64_t first, second;
  };
  using Signature =
      HRESULT(int8_t, double, WRTEventRegistrationToken, float, Pair, GUID, uint16_t *);
  __block bool matched = false;
  id block = static_cast<id>(^HRESULT(int8_t byte, double number, WRTEventRegistrationToken token,
                                      float fraction, Pair pair, GUID guid, uint16_t *out) {
    matched = byte == -1 && number == 0.5 && token.value == INT64_MIN && fraction == -2.5f &&
              pair.first == 1 && pair.second == 2 && guid == Handler::kIid;
    *out = 77;
    return status::kOk;
  });
  struct Wide : abi::IUnknown {
    virtual HRESULT WRT_ABI Invoke(int8_t, double, WRTEventRegistrationToken, float, Pair, GUID,
                                   uint16_t *) = 0;
  };
  auto *delegate = static_cast<Wide *>(makeDelegate<Signature>(GUID{}, block));
  uint16_t out = 0;
  EXPECT_EQ(delegate->Invoke(-1, 0.5, {INT64_MIN}, -2.5f, {1, 2}, Handler::kIid, &out),
            status::kOk);
  EXPECT_TRUE(matched);
  EXPECT_EQ(out, 77);
  EXPECT_EQ(delegate->Release(), 0u);
}

TEST_F(Delegates, AnswersItsOwnInterfaceUnknownAndAgileOnly) {
  auto handler = makeHandler(^HRESULT(void *, int32_t) {
    return status::kOk;
  });
  for (const GUID &iid : {Handler::kIid, abi::IUnknown::kIid, abi::IAgileObject::kIid}) {
    void *result = nullptr;
    ASSERT_EQ(handler->QueryInterface(&iid, &result), status::kOk);
    EXPECT_EQ(result, handler.get());
    EXPECT_EQ(handler->Release(), 1u);
  }
  void *result = handler.get();
  EXPECT_EQ(handler->QueryInterface(&abi::IInspectable::kIid, &result), status::kNoInterface);
  EXPECT_EQ(result, nullptr);
  EXPECT_EQ(handler->QueryInterface(&Handler::kIid, nullptr), status::kPointer);
}

TEST_F(Delegates, KeepsTheBlockUntilTheLastReferenceGoes) {
  const auto captured = std::make_shared<int>(1);
  Handler *handler;
  {
    // The block in the frame holds a copy as well, which ends with this scope.
    handler = makeHandler(^HRESULT(void *, int32_t) {
                return *captured;
              }).detach();
  }
  EXPECT_EQ(change(), "delegates +1, blocks +1");
  EXPECT_EQ(captured.use_count(), 2);
  EXPECT_EQ(handler->AddRef(), 2u);
  EXPECT_EQ(handler->Release(), 1u);
  EXPECT_EQ(handler->Invoke(nullptr, 0), 1);
  EXPECT_EQ(handler->Release(), 0u);
  EXPECT_EQ(captured.use_count(), 1);
  EXPECT_EQ(change(), "nothing");
}

TEST_F(Delegates, SharesABlockThatIsOnTheHeapAlready) {
  const auto captured = std::make_shared<int>(1);
  id block = objc_retainBlock(static_cast<id>(^HRESULT(void *, int32_t) {
    return *captured;
  }));
  const auto handler = makeHandler(static_cast<HandlerBlock>(block));
  objc_release(block);
  EXPECT_EQ(change(), "delegates +1, blocks +1");
  EXPECT_EQ(handler->Invoke(nullptr, 0), 1);
}

TEST_F(Delegates, NilBlockFailsWhenInvoked) {
  const auto handler = makeHandler(nil);
  EXPECT_EQ(handler->Invoke(nullptr, 0), status::kPointer);
}

TEST_F(Delegates, WhatTheBlockAutoreleasesGoesWithTheCall) {
  const auto handler = makeHandler(^HRESULT(void *, int32_t) {
    [[[WRTDelegateTestObject alloc] init] autorelease];
    return liveAutoreleased;
  });
  std::jthread([&] {
    EXPECT_EQ(handler->Invoke(nullptr, 0), 1);
    EXPECT_EQ(liveAutoreleased, 0);
  }).join();
}

TEST_F(Delegates, AreInvokedAndReleasedByManyThreads) {
  constexpr int kThreads = 4;
  constexpr int kCalls = 500;
  std::atomic<int> calls = 0;
  std::atomic<int> frees = 0;
  std::atomic<int> *freesPointer = &frees;
  std::atomic<int> *callsPointer = &calls;
  Handler *handler;
  {
    const std::shared_ptr<void> guard(nullptr, [freesPointer](void *) { ++*freesPointer; });
    handler = makeHandler(^HRESULT(void *, int32_t value) {
                (void)guard;
                *callsPointer += value;
                return status::kOk;
              }).detach();
  }
  for (int thread = 1; thread < kThreads; ++thread)
    handler->AddRef();
  onThreads(kThreads, [&](int) {
    for (int call = 0; call < kCalls; ++call) {
      const ComPtr<Handler> kept(handler);
      kept->Invoke(nullptr, 1);
    }
    handler->Release();
  });
  EXPECT_EQ(calls, kThreads * kCalls);
  EXPECT_EQ(frees, 1);
}

TEST_F(Delegates, CWhoCallsThroughTheTableGetsTheSame) {
  Handler *handler = makeHandler(^HRESULT(void *, int32_t value) {
                       return value;
                     }).detach();
  auto *unknown = reinterpret_cast<WRTIUnknown *>(handler);
  EXPECT_EQ(unknown->lpVtbl->AddRef(unknown), 2u);
  using Invoke = HRESULT(WRT_ABI *)(void *, void *, int32_t);
  EXPECT_EQ((*reinterpret_cast<Invoke **>(handler))[3](handler, nullptr, 42), 42);
  EXPECT_EQ(unknown->lpVtbl->Release(unknown), 1u);
  EXPECT_EQ(unknown->lpVtbl->Release(unknown), 0u);
}

} // namespace
} // namespace wrt::test
