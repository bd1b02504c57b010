#include "platform/linux/implement/EventSource.h"

#include "platform/linux/bridge/Delegate.h"
#include "platform/linux/tests/LedgerTest.h"
#include "platform/linux/tests/TestInterfaces.h"
#include "platform/linux/tests/Threads.h"

#include <atomic>
#include <string>

namespace wrt::test {
namespace {

using namespace implement;

class Events : public LedgerTest {
protected:
  /// Subscribes a block; its token.
  WRTEventRegistrationToken add(HRESULT (^block)(void *, int32_t)) {
    void *delegate = makeDelegate<HRESULT(void *, int32_t)>(Handler::kIid, static_cast<id>(block));
    const auto handler = ComPtr<Handler>::adopt(static_cast<Handler *>(delegate));
    WRTEventRegistrationToken token;
    EXPECT_EQ(source->add(handler.get(), &token), status::kOk);
    return token;
  }
  /// Subscribes a handler that writes its letter down.
  WRTEventRegistrationToken addLetter(char letter, HRESULT result = status::kOk) {
    std::string *calls = &calls_;
    return add(^HRESULT(void *, int32_t) {
      *calls += letter;
      return result;
    });
  }
  /// The letters of the handlers that were called, in order.
  std::string raise() {
    calls_.clear();
    source->raise(nullptr, 1);
    return calls_;
  }
  void TearDown() override {
    source.reset();
    LedgerTest::TearDown();
  }

  std::unique_ptr<EventSource<Handler>> source = std::make_unique<EventSource<Handler>>();
  std::string calls_;
};

TEST_F(Events, DisconnectedHandlerIsRemoved) {
  addLetter('a', status::kDisconnected);
  addLetter('b', status::kFail);
  addLetter('c');
  EXPECT_EQ(raise(), "abc") << "a failure does not stop the others";
  EXPECT_EQ(raise(), "bc");
}

TEST_F(Events, HandlersComeAndGoWhileTheEventIsRaised) {
  std::atomic<int> calls = 0;
  std::atomic<int> *counter = &calls;
  const auto fixed = add(^HRESULT(void *, int32_t) {
    ++*counter;
    return status::kOk;
  });
  constexpr int kRounds = 200;
  onThreads(4, [&](int index) {
    for (int round = 0; round < kRounds; ++round) {
      if (index % 2 == 0) {
        source->raise(nullptr, 1);
      } else {
        source->remove(add(^HRESULT(void *, int32_t) {
          return status::kOk;
        }));
      }
    }
  });
  EXPECT_EQ(calls, 2 * kRounds);
  source->remove(fixed);
  EXPECT_EQ(source->count(), 0u);
}

} // namespace
} // namespace wrt::test
