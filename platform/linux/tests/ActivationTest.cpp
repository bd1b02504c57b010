#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/implement/StringHolder.h"
#include "platform/linux/tests/LedgerTest.h"
#include "platform/linux/tests/TestInterfaces.h"
#include "platform/linux/tests/Threads.h"

#include <atomic>
#include <memory>

namespace wrt::test {
namespace {

using namespace implement;
using activation::makeFactory;
using activation::Registration;

class Named final : public Implements<INamed> {
  HRESULT WRT_ABI get_Name(HSTRING *value) override { return makeString(u"default", value); }
  HRESULT WRT_ABI put_Name(HSTRING) override { return status::kNotImplemented; }
};

class NamedFactory final : public DefaultActivationFactory<Named, IScaled> {
  HRESULT WRT_ABI Scale(int32_t number, double factor, uint8_t, float, int64_t,
                        double *result) override {
    *result = number * factor;
    return status::kOk;
  }
};

class StaticsFactory final : public ActivationFactory<IScaled> {
  HRESULT WRT_ABI Scale(int32_t, double, uint8_t, float, int64_t, double *) override {
    return status::kNotImplemented;
  }
};

/// Of the whole program, as component libraries do it.
const Registration kNamed(u"Test.Named", makeFactory<NamedFactory>);

class Activation : public LedgerTest {
protected:
  template <class Interface>
  HRESULT get(std::u16string_view name, ComPtr<Interface> &factory) {
    return WRTGetActivationFactory(StringHolder(name).get(), &Interface::kIid, factory.putVoid());
  }
};

TEST_F(Activation, TellsHowItFailed) {
  const Registration onlyStatics(u"Test.Statics", makeFactory<StaticsFactory>);
  ComPtr<INamed> named;
  EXPECT_EQ(get(u"Test.Named", named), status::kNoInterface);
  EXPECT_EQ(get(u"Test.Nobody", named), static_cast<HRESULT>(0x80040154));
  EXPECT_EQ(get(u"Test.Name", named), status::kClassNotRegistered);
  EXPECT_FALSE(named);
  EXPECT_EQ(WRTActivateInstance(u"Test.Nobody"), nullptr);
  EXPECT_EQ(WRTActivateInstance(u"Test.Statics"), nullptr);
  EXPECT_EQ(WRTActivateInstance(nullptr), nullptr);
  EXPECT_EQ(WRTGetActivationFactory(nullptr, &INamed::kIid, named.putVoid()),
            status::kInvalidArgument);
  EXPECT_EQ(WRTGetActivationFactory(StringHolder(u"Test.Named").get(), &INamed::kIid, nullptr),
            status::kPointer);
}

TEST_F(Activation, LatestRegistrationCountsAsLongAsItLives) {
  auto requests = std::make_shared<int>(0);
  ComPtr<abi::IActivationFactory> factory;
  {
    const Registration over(u"Test.Named", [requests]() -> ComPtr<abi::IActivationFactory> {
      ++*requests;
      return nullptr;
    });
    EXPECT_EQ(get(u"Test.Named", factory), status::kClassNotRegistered);
    EXPECT_EQ(get(u"Test.Named", factory), status::kClassNotRegistered);
    EXPECT_EQ(*requests, 2);
  }
  EXPECT_EQ(requests.use_count(), 1);
  EXPECT_EQ(get(u"Test.Named", factory), status::kOk);
}

TEST_F(Activation, RegistrationsChangeWhileOthersActivate) {
  std::atomic<int> made = 0;
  constexpr int kRounds = 200;
  onThreads(4, [&](int index) {
    for (int round = 0; round < kRounds; ++round) {
      if (index == 0) {
        const Registration passing(u"Test.Passing", makeFactory<NamedFactory>);
        ComPtr<IScaled> statics;
        EXPECT_EQ(get(u"Test.Passing", statics), status::kOk);
      } else if (auto *instance =
                     static_cast<abi::IUnknown *>(WRTActivateInstance(u"Test.Named"))) {
        ++made;
        instance->Release();
      }
    }
  });
  EXPECT_EQ(made, 3 * kRounds);
  EXPECT_EQ(WRTActivateInstance(u"Test.Passing"), nullptr);
}

} // namespace
} // namespace wrt::test
