#include "platform/linux/implement/Implements.h"
#include "platform/linux/implement/StringHolder.h"
#include "platform/linux/tests/LedgerTest.h"
#include "platform/linux/tests/TestInterfaces.h"

#include <WRTUnknown.h>
#include <vector>

namespace wrt::test {
namespace {

using namespace implement;

class Thing final : public Implements<INamed, IScaled, abi::IBufferByteAccess> {
public:
  explicit Thing(std::u16string_view name) : name_(name) {}

  HRESULT WRT_ABI get_Name(HSTRING *value) override { return name_.copyTo(value); }

  HRESULT WRT_ABI put_Name(HSTRING value) override {
    name_ = StringHolder(value);
    return status::kOk;
  }

  HRESULT WRT_ABI Scale(int32_t number, double factor, uint8_t byte, float fraction, int64_t wide,
                        double *result) override {
    *result = number * factor + byte * double{fraction} + static_cast<double>(wide);
    return status::kFalse;
  }

  HRESULT WRT_ABI Buffer(uint8_t **bytes) override {
    *bytes = &byte_;
    return status::kOk;
  }

private:
  std::u16string_view runtimeClassName() const override { return u"Test.Thing"; }

  StringHolder name_;
  uint8_t byte_ = 0;
};

class Components : public LedgerTest {};

TEST_F(Components, EveryInterfaceLeadsToEveryOtherAndToOneIdentity) {
  const auto thing = make<Thing>(u"x");
  const GUID iids[] = {INamed::kIid, IScaled::kIid, abi::IBufferByteAccess::kIid,
                       abi::IInspectable::kIid, abi::IAgileObject::kIid};
  for (const GUID &from : iids) {
    ComPtr<abi::IUnknown> start;
    ASSERT_EQ(thing->QueryInterface(&from, start.putVoid()), status::kOk);
    for (const GUID &to : iids) {
      ComPtr<abi::IUnknown> direct;
      ComPtr<abi::IUnknown> around;
      ASSERT_EQ(thing->QueryInterface(&to, direct.putVoid()), status::kOk);
      ASSERT_EQ(start->QueryInterface(&to, around.putVoid()), status::kOk);
      EXPECT_EQ(direct, around);
    }
    const auto identity = start.as<abi::IUnknown>();
    EXPECT_EQ(identity.get(), thing->identity());
  }
}

TEST_F(Components, LackingInterfacesAreRefused) {
  const auto thing = make<Thing>(u"x");
  void *result = thing.get();
  EXPECT_EQ(thing->QueryInterface(&abi::IActivationFactory::kIid, &result), status::kNoInterface);
  EXPECT_EQ(result, nullptr);
  EXPECT_EQ(thing->QueryInterface(&INamed::kIid, nullptr), status::kPointer);
  EXPECT_FALSE(thing.as<abi::IActivationFactory>());
}

TEST_F(Components, TellTheirClassInterfacesAndTrust) {
  const auto inspectable = make<Thing>(u"x").as<IScaled>().as<abi::IInspectable>();
  StringHolder name;
  EXPECT_EQ(inspectable->GetRuntimeClassName(name.put()), status::kOk);
  EXPECT_EQ(name.view(), u"Test.Thing");
  int32_t trust = -1;
  EXPECT_EQ(inspectable->GetTrustLevel(&trust), status::kOk);
  EXPECT_EQ(trust, 0);
  uint32_t count = 0;
  GUID *iids = nullptr;
  ASSERT_EQ(inspectable->GetIids(&count, &iids), status::kOk);
  EXPECT_EQ(std::vector(iids, iids + count), std::vector({INamed::kIid, IScaled::kIid}));
  WRTTaskMemFree(iids);
}

} // namespace
} // namespace wrt::test
