#import <Foundation/Foundation.h>

#include "platform/linux/bridge/Delegate.h"
#include "platform/linux/implement/ComPtr.h"
#include "platform/linux/tests/LedgerTest.h"
#include "platform/linux/tests/TestInterfaces.h"

#include <WRTUnknown.h>

namespace wrt::test {
namespace {

using implement::ComPtr;

using HandlerBlock = HRESULT (^)(void *, int32_t);

ComPtr<Handler> makeHandler(HandlerBlock block) {
  void *delegate = makeDelegate<HRESULT(void *, int32_t)>(Handler::kIid, static_cast<id>(block));
  return ComPtr<Handler>::adopt(static_cast<Handler *>(delegate));
}

class Delegates : public LedgerTest {};

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

} // namespace
} // namespace wrt::test
