// What components are made with: interfaces, factories, delegates, events and buffers.

#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/bridge/Delegate.h"
#include "platform/linux/implement/EventSource.h"
#include "platform/linux/implement/Implements.h"
#include "platform/linux/implement/StringHolder.h"
#include "platform/linux/tests/LedgerTest.h"

#include <WRTBridge.h>
#include <abi/Windows.Foundation.abi.h>
#include <abi/Windows.Storage.Streams.abi.h>

#include <atomic>

namespace wrt::test {
namespace {

using namespace implement;
using activation::makeFactory;
using activation::Registration;

class Objects : public LedgerTest {};

class Thing final : public Implements<abi::IStringable, abi::IClosable, abi::IBufferByteAccess> {
  HRESULT WRT_ABI ToString(HSTRING *value) override { return makeString(u"thing", value); }
  HRESULT WRT_ABI Close() override { return status::kOk; }
  HRESULT WRT_ABI Buffer(uint8_t **) override { return status::kNotImplemented; }
  std::u16string_view runtimeClassName() const override { return u"Test.Thing"; }
};

TEST_F(Objects, EveryInterfaceLeadsToEveryOtherAndToOneIdentity) {
  const auto thing = make<Thing>();
  const GUID iids[] = {abi::IStringable::kIid, abi::IClosable::kIid, abi::IBufferByteAccess::kIid,
                       abi::IInspectable::kIid, abi::IAgileObject::kIid};
  for (const GUID &from : iids) {
    ComPtr<abi::IUnknown> start;
    ASSERT_EQ(thing->QueryInterface(&from, start.putVoid()), status::kOk);
    for (const GUID &to : iids) {
      ComPtr<abi::IUnknown> direct, around;
      ASSERT_EQ(thing->QueryInterface(&to, direct.putVoid()), status::kOk);
      ASSERT_EQ(start->QueryInterface(&to, around.putVoid()), status::kOk);
      EXPECT_EQ(direct, around);
    }
    EXPECT_EQ(start.as<abi::IUnknown>().get(), thing->identity());
  }
}

/// Any object refuses what it lacks.
void expectRefusals(abi::IUnknown *object, const GUID &has, const GUID &lacks) {
  void *result = object;
  EXPECT_EQ(object->QueryInterface(&lacks, &result), status::kNoInterface);
  EXPECT_EQ(result, nullptr);
  EXPECT_EQ(object->QueryInterface(&has, nullptr), status::kPointer);
}

TEST_F(Objects, TellTheirClassInterfacesAndTrust) {
  const auto inspectable = make<Thing>().as<abi::IClosable>().as<abi::IInspectable>();
  expectRefusals(inspectable.get(), abi::IStringable::kIid, abi::IActivationFactory::kIid);
  StringHolder name;
  EXPECT_EQ(inspectable->GetRuntimeClassName(name.put()), status::kOk);
  EXPECT_EQ(name.view(), u"Test.Thing");
  int32_t trust = -1;
  EXPECT_EQ(inspectable->GetTrustLevel(&trust), status::kOk);
  EXPECT_EQ(trust, 0);
  uint32_t count = 0;
  GUID *iids = nullptr;
  ASSERT_EQ(inspectable->GetIids(&count, &iids), status::kOk);
  EXPECT_EQ(std::vector(iids, iids + count),
            std::vector({abi::IStringable::kIid, abi::IClosable::kIid}));
  WRTTaskMemFree(iids);
}

using ThingFactory = DefaultActivationFactory<Thing>;
/// Of the whole program, as component libraries do it.
const Registration kThing(u"Test.Thing", makeFactory<ThingFactory>);

TEST_F(Objects, AreActivatedWhileRegistrationsChange) {
  std::atomic<int> made = 0;
  onThreads(4, 200, [&](int index) {
    if (index == 0) {
      const Registration passing(u"Test.Passing", makeFactory<ThingFactory>);
      ComPtr<abi::IActivationFactory> factory;
      EXPECT_EQ(WRTGetActivationFactory(StringHolder(u"Test.Passing").get(),
                                        &abi::IActivationFactory::kIid, factory.putVoid()),
                status::kOk);
    } else if (auto *instance = static_cast<abi::IUnknown *>(WRTActivateInstance(u"Test.Thing"))) {
      ++made;
      instance->Release();
    }
  });
  EXPECT_EQ(made, 3 * 200);
  EXPECT_EQ(WRTActivateInstance(u"Test.Passing"), nullptr);
  EXPECT_EQ(WRTActivateInstance(nullptr), nullptr);
}

struct Handler : abi::IUnknown {
  static constexpr GUID kIid{0x7E570003, 0, 0, {0, 0, 0, 0, 0, 0, 0, 3}};

  virtual HRESULT WRT_ABI Invoke(abi::IInspectable *sender, int32_t value) = 0;
};

ComPtr<Handler> makeHandler(HRESULT (^block)(void *, int32_t)) {
  void *delegate = makeDelegate<HRESULT(void *, int32_t)>(Handler::kIid, static_cast<id>(block));
  return ComPtr<Handler>::adopt(static_cast<Handler *>(delegate));
}

TEST_F(Objects, DelegatesAnswerTheirOwnInterfaceUnknownAndAgileOnly) {
  const auto handler = makeHandler(^HRESULT(void *, int32_t) {
    return status::kOk;
  });
  for (const GUID &iid : {Handler::kIid, abi::IUnknown::kIid, abi::IAgileObject::kIid}) {
    void *result = nullptr;
    ASSERT_EQ(handler->QueryInterface(&iid, &result), status::kOk);
    EXPECT_EQ(result, handler.get());
    EXPECT_EQ(handler->Release(), 1u);
  }
  expectRefusals(handler.get(), Handler::kIid, abi::IInspectable::kIid);
}

TEST_F(Objects, ArgumentsOfEveryKindArriveInADelegate) {
  struct Pair {
    int64_t first, second;
  };
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
  auto *delegate =
      static_cast<Wide *>(makeDelegate<HRESULT(int8_t, double, WRTEventRegistrationToken, float,
                                               Pair, GUID, uint16_t *)>(GUID{}, block));
  uint16_t out = 0;
  EXPECT_EQ(delegate->Invoke(-1, 0.5, {INT64_MIN}, -2.5f, {1, 2}, Handler::kIid, &out),
            status::kOk);
  EXPECT_TRUE(matched);
  EXPECT_EQ(out, 77);
  EXPECT_EQ(delegate->Release(), 0u);
}

/// Subscribes a block; its token.
WRTEventRegistrationToken subscribe(EventSource<Handler> &source,
                                    HRESULT (^block)(void *, int32_t)) {
  WRTEventRegistrationToken token;
  EXPECT_EQ(source.add(makeHandler(block).get(), &token), status::kOk);
  return token;
}

TEST_F(Objects, DisconnectedHandlersOfEventsAreRemoved) {
  __block std::string calls;
  EventSource<Handler> source;
  const std::pair<char, HRESULT> handlers[] = {
      {'a', status::kDisconnected}, {'b', status::kFail}, {'c', status::kOk}};
  for (const auto &handler : handlers) {
    const auto letter = handler.first;
    const HRESULT result = handler.second;
    subscribe(source, ^HRESULT(void *, int32_t) {
      calls += letter;
      return result;
    });
  }
  source.raise(nullptr, 1);
  EXPECT_EQ(calls, "abc") << "a failure does not stop the others";
  source.raise(nullptr, 1);
  EXPECT_EQ(calls, "abcbc");
}

TEST_F(Objects, HandlersComeAndGoWhileTheEventIsRaised) {
  EventSource<Handler> source;
  std::atomic<int> calls = 0;
  std::atomic<int> *counter = &calls;
  const auto fixed = subscribe(source, ^HRESULT(void *, int32_t) {
    ++*counter;
    return status::kOk;
  });
  onThreads(4, 200, [&](int index) {
    if (index % 2 == 0)
      source.raise(nullptr, 1);
    else
      source.remove(subscribe(source, ^HRESULT(void *, int32_t) {
        return status::kOk;
      }));
  });
  EXPECT_EQ(calls, 2 * 200);
  source.remove(fixed);
  EXPECT_EQ(source.count(), 0u);
}

TEST_F(Objects, BuffersWrapTheBytesOfTheCaller) {
  uint8_t bytes[5], *found = nullptr;
  const auto buffer = ComPtr<abi::IBuffer>::adopt(
      static_cast<abi::IBuffer *>(WRTCreateBufferWrappingBytes(bytes, sizeof(bytes))));
  unsigned capacity = 0;
  EXPECT_EQ(buffer->get_Capacity(&capacity), status::kOk);
  EXPECT_EQ(capacity, 5u);
  const GUID iid = WRTIBufferByteAccessGetUUID();
  void *access = nullptr;
  ASSERT_EQ(WRTIUnknownQueryInterface(buffer.get(), &iid, &access), status::kOk);
  EXPECT_EQ(WRTIBufferByteAccessBuffer(access, &found), status::kOk);
  EXPECT_EQ(found, bytes);
  EXPECT_EQ(WRTIUnknownAddRef(access), 3u);
  EXPECT_EQ(WRTIUnknownRelease(access), 2u);
  WRTIUnknownSafeRelease(access);
  WRTIUnknownSafeRelease(nullptr);
}

} // namespace
} // namespace wrt::test
