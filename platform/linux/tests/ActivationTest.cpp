#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/implement/StringHolder.h"
#include "platform/linux/tests/LedgerTest.h"
#include "platform/linux/tests/TestInterfaces.h"
#include "platform/linux/tests/Threads.h"

#include <atomic>

namespace wrt::test {
namespace {

using namespace implement;
using activation::makeFactory;
using activation::Registration;

class Named final : public Implements<INamed> {
  HRESULT WRT_ABI get_Name(HSTRING *value) override { return makeString(u"default", value); }
  HRESULT WRT_ABI put_Name(HSTRING) override { return status::kNotImplemented; }
};

using NamedFactory = DefaultActivationFactory<Named>;

/// Of the whole program, as component libraries do it.
const Registration kNamed(u"Test.Named", makeFactory<NamedFactory>);

class Activation : public LedgerTest {};

TEST_F(Activation, RegistrationsChangeWhileOthersActivate) {
  std::atomic<int> made = 0;
  constexpr int kRounds = 200;
  onThreads(4, [&](int index) {
    for (int round = 0; round < kRounds; ++round) {
      if (index == 0) {
        const Registration passing(u"Test.Passing", makeFactory<NamedFactory>);
        ComPtr<abi::IActivationFactory> factory;
        EXPECT_EQ(WRTGetActivationFactory(StringHolder(u"Test.Passing").get(),
                                          &abi::IActivationFactory::kIid, factory.putVoid()),
                  status::kOk);
      } else if (auto *instance =
                     static_cast<abi::IUnknown *>(WRTActivateInstance(u"Test.Named"))) {
        ++made;
        instance->Release();
      }
    }
  });
  EXPECT_EQ(made, 3 * kRounds);
  EXPECT_EQ(WRTActivateInstance(u"Test.Passing"), nullptr);
  EXPECT_EQ(WRTActivateInstance(nullptr), nullptr);
}

} // namespace
} // namespace wrt::test
