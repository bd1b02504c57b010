#include "platform/linux/implement/Implements.h"
#include "platform/linux/implement/StringHolder.h"
#include "platform/linux/tests/LedgerTest.h"
#include "platform/linux/tests/TestInterfaces.h"
#include "platform/linux/tests/Threads.h"

#include <WRTUnknown.h>
#include <algorithm>
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

TEST_F(Components, ObjectsLiveAsLongAsTheirReferences) {
  ComPtr<IScaled> scaled;
  {
    const auto thing = make<Thing>(u"x");
    EXPECT_EQ(change(), "objects +1, strings +1, string handles +1");
    scaled = thing.as<IScaled>();
  }
  EXPECT_EQ(scaled->AddRef(), 2u);
  EXPECT_EQ(scaled->Release(), 1u);
  scaled.reset();
  EXPECT_EQ(change(), "nothing");
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

TEST_F(Components, VirtualFunctionsLieInTheOrderOfTheCTables) {
  auto thing = make<Thing>(u"table");
  auto *scaled = reinterpret_cast<WRTIInspectable *>(static_cast<IScaled *>(thing.get()));
  const WRTIInspectableVtbl *table = scaled->lpVtbl;
  void *result = nullptr;
  ASSERT_EQ(table->QueryInterface(scaled, &INamed::kIid, &result), status::kOk);
  EXPECT_EQ(result, static_cast<INamed *>(thing.get()));
  EXPECT_EQ(table->AddRef(scaled), 3u);
  EXPECT_EQ(table->Release(scaled), 2u);
  EXPECT_EQ(thing->Release(), 1u);
  uint32_t count = 0;
  GUID *iids = nullptr;
  EXPECT_EQ(table->GetIids(scaled, &count, &iids), status::kOk);
  EXPECT_EQ(count, 2u);
  WRTTaskMemFree(iids);
  StringHolder name;
  EXPECT_EQ(table->GetRuntimeClassName(scaled, name.put()), status::kOk);
  EXPECT_EQ(name.view(), u"Test.Thing");
  int32_t trust = -1;
  EXPECT_EQ(table->GetTrustLevel(scaled, &trust), status::kOk);
  EXPECT_EQ(trust, 0);

  void *named = static_cast<INamed *>(thing.get());
  using Get = HRESULT(WRT_ABI *)(void *, HSTRING *);
  using Put = HRESULT(WRT_ABI *)(void *, HSTRING);
  EXPECT_EQ((*static_cast<Put **>(named))[7](named, name.get()), status::kOk);
  EXPECT_EQ((*static_cast<Get **>(named))[6](named, name.put()), status::kOk);
  EXPECT_EQ(name.view(), u"Test.Thing");
  using Scale = HRESULT(WRT_ABI *)(void *, int32_t, double, uint8_t, float, int64_t, double *);
  double product = 0;
  EXPECT_EQ((*reinterpret_cast<Scale **>(scaled))[6](scaled, -3, 0.5, 200, 0.25f, INT64_C(1) << 40,
                                                     &product),
            status::kFalse);
  EXPECT_EQ(product, -1.5 + 50.0 + 1099511627776.0);
}

TEST_F(Components, ReferencesAreCountedAcrossThreads) {
  auto thing = make<Thing>(u"x");
  onThreads(4, [thing](int) {
    for (int round = 0; round < 1000; ++round)
      EXPECT_TRUE(thing.as<IScaled>().as<INamed>());
  });
  EXPECT_EQ(thing->AddRef(), 2u);
  EXPECT_EQ(thing->Release(), 1u);
}

TEST_F(Components, PointersMoveCopyAndAnswerOutParameters) {
  auto thing = make<Thing>(u"x");
  ComPtr<INamed> named = thing;
  const ComPtr<INamed> moved = std::move(named);
  EXPECT_FALSE(named); // NOLINT(bugprone-use-after-move): moving leaves null
  INamed *out = nullptr;
  EXPECT_EQ(moved.copyTo(&out), status::kOk);
  EXPECT_EQ(moved.copyTo<INamed>(nullptr), status::kPointer);
  EXPECT_EQ(out->Release(), 2u);
  thing = nullptr;
  EXPECT_EQ(moved->AddRef(), 2u);
  EXPECT_EQ(moved->Release(), 1u);
  EXPECT_EQ(ComPtr<INamed>().copyTo(&out), status::kOk);
  EXPECT_EQ(out, nullptr);
}

} // namespace
} // namespace wrt::test
