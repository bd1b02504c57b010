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

const Cell defaultConstruction("activation.class.default.normal", [] {
  resetScript();
  clearCrossings();
  WRTTestClassBridge *bridge = [[WRTTestClassBridge alloc] init];
  ASSERT_NE(nil, bridge);
  [bridge voidFunctionWithError:nullptr];
  EXPECT_EQ(Crossings{"VoidFunction"}, takeCrossings());
  [bridge release];
});

const Cell defaultConstructionFailing("activation.class.default.class_missing", [] {
  const activation::Registration none(u"TestClass", noFactory);
  EXPECT_EQ(nil, [[WRTTestClassBridge alloc] init]);
  ASSERT_EQ(1u, logRecords().size());
  EXPECT_EQ(
      "Tried to create WRTTestClassBridge with default constructor, which it doesn't support!",
      logRecords()[0].text);
});

const Cell factory("activation.class.factory.normal", [] {
  resetScript();
  clearCrossings();
  NSError *error = staleError();
  WRTTestClassBridge *bridge = [WRTTestClassBridge testFactoryFunctionWithError:&error];
  EXPECT_EQ([WRTTestClassBridge class], [bridge class]);
  EXPECT_EQ(nil, error);
  EXPECT_EQ(Crossings{"TestFactoryFunction"}, takeCrossings());
  script().nullObjects = true;
  EXPECT_EQ(nil, [WRTTestClassBridge testFactoryFunctionWithError:nullptr]);
  EXPECT_EQ(1u, logRecords().size()) << "a null is not tested for";
  script().status = kFailure;
  EXPECT_EQ(nil, [WRTTestClassBridge testFactoryFunctionWithError:&error]);
  EXPECT_EQ(kFailure, [error code]);
  clearCrossings();
});

const Cell statics("activation.class.statics.normal", [] {
  resetScript();
  clearCrossings();
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
  NSError *noName = nil;
  failNextReference(kFailure);
  EXPECT_EQ(nullptr, [WRTTestClassBridge _WRTTestInterfaceStaticsWithError:&noName]);
  EXPECT_EQ(kFailure, [noName code]);
  for (auto maker : {noFactory, bareFactory}) {
    const activation::Registration other(u"TestClass", maker);
    const HRESULT status = maker == noFactory ? static_cast<HRESULT>(0x80040154) : kNoInterface;
    NSError *error = nil;
    EXPECT_EQ(nullptr, [WRTTestClassBridge _WRTTestInterfaceStaticsWithError:&error]);
    EXPECT_EQ(status, [error code]) << "and what a failing platform leaves is nobody's";
    NSError *const before = staleError();
    error = before;
    [WRTTestClassBridge testStaticFunctionWithError:&error];
    EXPECT_EQ(nil, [WRTTestClassBridge testFactoryFunctionWithError:&error]);
    EXPECT_EQ(before, error);
  }
});

} // namespace

} // namespace wrt::test
