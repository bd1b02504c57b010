// Runtime classes: default construction, factory, statics.

#include "tests/matrix/Fixture.h"

#include <WRTBridge.h>

namespace wrt::test {

namespace {

/// Keeps the test class from being found, or its factory from having the interfaces.
implement::ComPtr<abi::IActivationFactory> bareFactory() {
  return implement::make<implement::ActivationFactory<>>();
}
implement::ComPtr<abi::IActivationFactory> noFactory() { return nullptr; }

const MemberCell defaultConstruction("activation.class.default.normal", [] {
  WRTTestClassBridge *bridge = [[[WRTTestClassBridge alloc] init] autorelease];
  ASSERT_NE(nil, bridge);
  [bridge voidFunctionWithError:nullptr];
  [bridge voidFunctionFromInterface2WithError:nullptr];
  EXPECT_EQ((Crossings{"VoidFunction", "VoidFunctionFromInterface2"}), takeCrossings());
});

const Cell defaultConstructionFailing("activation.class.default.class_missing", [] {
  const activation::Registration none(u"TestClass", noFactory);
  EXPECT_EQ(nil, [[WRTTestClassBridge alloc] init]);
  ASSERT_EQ(1u, logRecords().size());
  EXPECT_EQ(
      "Tried to create WRTTestClassBridge with default constructor, which it doesn't support!",
      logRecords()[0].text);
});

const MemberCell factory("activation.class.factory.normal", [] {
  NSError *error = staleError();
  WRTTestClassBridge *bridge = [WRTTestClassBridge testFactoryFunctionWithError:&error];
  EXPECT_EQ([WRTTestClassBridge class], [bridge class]);
  EXPECT_EQ(nil, error);
  EXPECT_EQ(Crossings{"TestFactoryFunction"}, takeCrossings());
  script().nullObjects = true;
  EXPECT_EQ(nil, [WRTTestClassBridge testFactoryFunctionWithError:nullptr]);
  EXPECT_EQ(1u, logRecords().size()) << "a null is not tested for";
  script().status = kFailure;
  EXPECT_FAILS(kFailure, [WRTTestClassBridge testFactoryFunctionWithError:&failure]);
});

const MemberCell statics("activation.class.statics.normal", [] {
  NSError *error = staleError();
  WRTIUnknownRelease([WRTTestClassBridge _WRTTestInterfaceStaticsWithError:&error]);
  EXPECT_EQ(nil, error);
  PlatformTrace trace;
  [WRTTestClassBridge testStaticFunctionWithError:nullptr];
  [WRTTestClassBridge testStaticFunctionWithError:nullptr];
  EXPECT_EQ((Crossings{"TestStaticFunction", "TestStaticFunction"}), takeCrossings());
  EXPECT_EQ("WRTGetActivationFactory WRTIUnknownRelease WRTGetActivationFactory "
            "WRTIUnknownRelease",
            trace.names())
      << "nothing is kept between calls";
});

// The accessor reports; the member swallows.
const Cell factoryMissing("activation.class.factory.interface_missing", [] {
  failNextReference(kFailure);
  EXPECT_FAILS(kFailure, [WRTTestClassBridge _WRTTestInterfaceStaticsWithError:&failure]);
  for (auto maker : {noFactory, bareFactory}) {
    const activation::Registration other(u"TestClass", maker);
    // What a failing platform leaves is nobody's.
    EXPECT_FAILS(maker == noFactory ? status::kClassNotRegistered : kNoInterface,
                 [WRTTestClassBridge _WRTTestInterfaceStaticsWithError:&failure]);
    NSError *const before = staleError();
    NSError *error = before;
    [WRTTestClassBridge testStaticFunctionWithError:&error];
    EXPECT_EQ(nil, [WRTTestClassBridge testFactoryFunctionWithError:&error]);
    EXPECT_EQ(before, error);
  }
});

} // namespace

} // namespace wrt::test
