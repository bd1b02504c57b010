// Windows.Foundation.Metadata.ApiInformation: strings in, a boolean out.

#include "tests/wine/classes/Members.h"

#include <WRTStatus.h>

#import <WRTObjcBridge/Windows.Foundation.Metadata.h>

using namespace wrt::test;

namespace {

NSString *const kType = @"Windows.Gaming.Input.Gamepad";

void isTypePresent(NSError **error) {
  EXPECT_FALSE([WRTApiInformationBridge isTypePresentWithTypeName:kType error:error]);
  // Even here an empty string arrives, as null, which Wine refuses before anything else.
  NSError *ownError = nil;
  EXPECT_FALSE([WRTApiInformationBridge isTypePresentWithTypeName:nil error:&ownError]);
  EXPECT_EQ(wrt::status::kInvalidArgument, [ownError code]);
}
void isMethodPresent(NSError **error) {
  EXPECT_FALSE([WRTApiInformationBridge isMethodPresentWithTypeName:kType
                                                         methodName:@"m"
                                                              error:error]);
}
void isMethodPresentWithArity(NSError **error) {
  EXPECT_FALSE([WRTApiInformationBridge isMethodPresentWithArityWithTypeName:kType
                                                                  methodName:@"m"
                                                         inputParameterCount:1
                                                                       error:error]);
}
void isEventPresent(NSError **error) {
  EXPECT_FALSE([WRTApiInformationBridge isEventPresentWithTypeName:kType
                                                         eventName:@"GamepadAdded"
                                                             error:error]);
}
void isPropertyPresent(NSError **error) {
  EXPECT_FALSE([WRTApiInformationBridge isPropertyPresentWithTypeName:kType
                                                         propertyName:@"Gamepads"
                                                                error:error]);
}
void isReadOnlyPropertyPresent(NSError **error) {
  EXPECT_FALSE([WRTApiInformationBridge isReadOnlyPropertyPresentWithTypeName:kType
                                                                 propertyName:@"Gamepads"
                                                                        error:error]);
}
void isWriteablePropertyPresent(NSError **error) {
  EXPECT_FALSE([WRTApiInformationBridge isWriteablePropertyPresentWithTypeName:kType
                                                                  propertyName:@"Vibration"
                                                                         error:error]);
}
void isEnumNamedValuePresent(NSError **error) {
  EXPECT_FALSE([WRTApiInformationBridge isEnumNamedValuePresentWithEnumTypeName:kType
                                                                      valueName:@"A"
                                                                          error:error]);
}

// Wine has no contract, and refuses no name at all.
void isApiContractPresentByMajor(NSError **error) {
  EXPECT_FALSE([WRTApiInformationBridge
      isApiContractPresentByMajorWithContractName:@"Windows.Foundation.UniversalApiContract"
                                     majorVersion:1
                                            error:error]);
  NSError *ownError = nil;
  EXPECT_FALSE([WRTApiInformationBridge isApiContractPresentByMajorWithContractName:nil
                                                                       majorVersion:1
                                                                              error:&ownError]);
  EXPECT_EQ(wrt::status::kInvalidArgument, [ownError code]);
}
void isApiContractPresentByMajorAndMinor(NSError **error) {
  EXPECT_FALSE([WRTApiInformationBridge
      isApiContractPresentByMajorAndMinorWithContractName:@"Windows.Foundation.UniversalApiContract"
                                             majorVersion:1
                                             minorVersion:0
                                                    error:error]);
}

const Member members[] = {
    {"ApiInformation.IsTypePresent", isTypePresent},
    {"ApiInformation.IsMethodPresent", isMethodPresent},
    {"ApiInformation.IsMethodPresentWithArity", isMethodPresentWithArity},
    {"ApiInformation.IsEventPresent", isEventPresent},
    {"ApiInformation.IsPropertyPresent", isPropertyPresent},
    {"ApiInformation.IsReadOnlyPropertyPresent", isReadOnlyPropertyPresent},
    {"ApiInformation.IsWriteablePropertyPresent", isWriteablePropertyPresent},
    {"ApiInformation.IsEnumNamedValuePresent", isEnumNamedValuePresent},
    {"ApiInformation.IsApiContractPresentByMajor", isApiContractPresentByMajor},
    {"ApiInformation.IsApiContractPresentByMajorAndMinor", isApiContractPresentByMajorAndMinor},
};

} // namespace
