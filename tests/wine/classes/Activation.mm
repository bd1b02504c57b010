// Activation of what this Wine does not have: classes, and an interface of a class that it has.

#include "tests/wine/classes/Members.h"

#import <WRTObjcBridge/Windows.Foundation.h>
#import <WRTObjcBridge/Windows.Storage.Streams.h>
#import <WRTObjcBridge/Windows.System.UserProfile.h>

using namespace wrt::test;

namespace {

constexpr HRESULT kClassNotRegistered = static_cast<HRESULT>(0x80040154); // REGDB_E_CLASSNOTREG

// The accessor reports what combase said; the member swallows it.
void unknownFactory(NSError **error) {
  NSError *ownError = nil;
  EXPECT_EQ(nullptr, [WRTUriBridge _WRTIUriRuntimeClassFactoryWithError:&ownError]);
  EXPECT_EQ(kClassNotRegistered, [ownError code]);
  EXPECT_EQ(nil, [[WRTInMemoryRandomAccessStreamBridge alloc] init]);
  EXPECT_EQ(nil, [WRTUriBridge createUriWithUri:@"http://example.org/" error:error]);
}

void unknownInterface(NSError **error) {
  NSError *ownError = nil;
  EXPECT_EQ(nullptr, [WRTGlobalizationPreferencesBridge
                         _WRTIGlobalizationPreferencesStatics2WithError:&ownError]);
  EXPECT_EQ(static_cast<HRESULT>(0x80004002), [ownError code]); // E_NOINTERFACE
  EXPECT_FALSE([WRTGlobalizationPreferencesBridge trySetLanguagesWithLanguageTags:nil error:error]);
}

const Member members[] = {
    {"(activation).unknown_class", unknownFactory},
    {"(activation).unknown_interface", unknownInterface},
};

} // namespace
