// Windows.Devices.Enumeration: objects made by factories, a GUID by value, events with tokens.

#include "tests/wine/classes/Members.h"

#import <WRTObjcBridge/Windows.Devices.Enumeration.h>

using namespace wrt::test;

namespace {

/// DeviceClass.AudioCapture (Windows 10 SDK 10.0.16299.0, windows.devices.enumeration.h).
constexpr int kAudioCapture = 1;
/// DeviceAccessStatus.Allowed, likewise.
constexpr int kAllowed = 1;

/// {bff5b1e0-0102-4000-8090-a0b0c0d0e0f1}
constexpr GUID kDeviceClassId = {
    0xbff5b1e0, 0x0102, 0x4000, {0x80, 0x90, 0xa0, 0xb0, 0xc0, 0xd0, 0xe0, 0xf1}};

void expectAccess(WRTDeviceAccessInformationBridge *access) {
  EXPECT_EQ([WRTDeviceAccessInformationBridge class], [access class]);
  NSError *error = nil;
  EXPECT_EQ(kAllowed, [access getCurrentStatusWithError:&error]);
  EXPECT_EQ(nil, error);
}

void createFromId(NSError **error) {
  expectAccess([WRTDeviceAccessInformationBridge createFromIdWithDeviceId:@"\\\\?\\none"
                                                                    error:error]);
}
void createFromDeviceClassId(NSError **error) {
  expectAccess([WRTDeviceAccessInformationBridge
      createFromDeviceClassIdWithDeviceClassId:kDeviceClassId
                                         error:error]);
}
void createFromDeviceClass(NSError **error) {
  expectAccess([WRTDeviceAccessInformationBridge createFromDeviceClassWithDeviceClass:kAudioCapture
                                                                                error:error]);
}

WRTDeviceAccessInformationBridge *newAccess() {
  return [WRTDeviceAccessInformationBridge createFromDeviceClassWithDeviceClass:kAudioCapture
                                                                          error:nullptr];
}

void currentStatus(NSError **error) {
  EXPECT_EQ(kAllowed, [newAccess() getCurrentStatusWithError:error]);
}

using AccessHandler = HRESULT (^)(WRTDeviceAccessInformationBridge *,
                                  WRTDeviceAccessChangedEventArgsBridge *);
const AccessHandler ignoreAccess =
    ^HRESULT(WRTDeviceAccessInformationBridge *, WRTDeviceAccessChangedEventArgsBridge *) {
      return 0;
    };

void addAccessChanged(NSError **error) {
  const long before = liveDelegates();
  [newAccess() addAccessChangedWithHandler:ignoreAccess error:error];
  EXPECT_EQ(expectedAnswer() == Answer::Works ? 1 : 0, liveDelegates() - before);
}
void removeAccessChanged(NSError **error) {
  WRTDeviceAccessInformationBridge *access = newAccess();
  const WRTEventRegistrationToken token = [access addAccessChangedWithHandler:ignoreAccess
                                                                        error:nullptr];
  [access removeAccessChangedWithToken:token error:error];
}

void createFromIdAsync(NSError **error) {
  EXPECT_EQ(nil, [WRTDeviceInformationBridge createFromIdAsyncWithDeviceId:@"x" error:error]);
}
void createFromIdAsyncAdditionalProperties(NSError **error) {
  EXPECT_EQ(nil,
            [WRTDeviceInformationBridge createFromIdAsyncAdditionalPropertiesWithDeviceId:@"x"
                                                                     additionalProperties:nil
                                                                                    error:error]);
}
void findAllAsync(NSError **error) {
  EXPECT_EQ(nil, [WRTDeviceInformationBridge findAllAsyncWithError:error]);
}
void findAllAsyncDeviceClass(NSError **error) {
  EXPECT_EQ(nil, [WRTDeviceInformationBridge findAllAsyncDeviceClassWithDeviceClass:kAudioCapture
                                                                              error:error]);
}
void findAllAsyncAqsFilter(NSError **error) {
  EXPECT_EQ(nil, [WRTDeviceInformationBridge findAllAsyncAqsFilterWithAqsFilter:@"x" error:error]);
}
void findAllAsyncAqsFilterAndAdditionalProperties(NSError **error) {
  EXPECT_EQ(nil, [WRTDeviceInformationBridge
                     findAllAsyncAqsFilterAndAdditionalPropertiesWithAqsFilter:@"x"
                                                          additionalProperties:nil
                                                                         error:error]);
}
void createWatcher(NSError **error) {
  EXPECT_EQ(nil, [WRTDeviceInformationBridge createWatcherWithError:error]);
}
void createWatcherDeviceClass(NSError **error) {
  EXPECT_EQ(nil, [WRTDeviceInformationBridge createWatcherDeviceClassWithDeviceClass:kAudioCapture
                                                                               error:error]);
}
void createWatcherAqsFilter(NSError **error) {
  EXPECT_EQ(nil, [WRTDeviceInformationBridge createWatcherAqsFilterWithAqsFilter:@"x" error:error]);
}
void createWatcherAqsFilterAndAdditionalProperties(NSError **error) {
  EXPECT_EQ(nil, [WRTDeviceInformationBridge
                     createWatcherAqsFilterAndAdditionalPropertiesWithAqsFilter:@"x"
                                                           additionalProperties:nil
                                                                          error:error]);
}
void getAqsFilterFromDeviceClass(NSError **error) {
  EXPECT_EQ(nil,
            [WRTDeviceInformationBridge getAqsFilterFromDeviceClassWithDeviceClass:kAudioCapture
                                                                             error:error]);
}
void createFromIdAsyncWithKind(NSError **error) {
  EXPECT_EQ(nil, [WRTDeviceInformationBridge
                     createFromIdAsyncWithKindAndAdditionalPropertiesWithDeviceId:@"x"
                                                             additionalProperties:nil
                                                                             kind:1
                                                                            error:error]);
}
void findAllAsyncWithKind(NSError **error) {
  EXPECT_EQ(nil, [WRTDeviceInformationBridge
                     findAllAsyncWithKindAqsFilterAndAdditionalPropertiesWithAqsFilter:@"x"
                                                                  additionalProperties:nil
                                                                                  kind:1
                                                                                 error:error]);
}

void createWatcherWithKind(NSError **error) {
  WRTDeviceWatcherBridge *watcher = [WRTDeviceInformationBridge
      createWatcherWithKindAqsFilterAndAdditionalPropertiesWithAqsFilter:nil
                                                    additionalProperties:nil
                                                                    kind:1
                                                                   error:error];
  EXPECT_EQ([WRTDeviceWatcherBridge class], [watcher class]);
  EXPECT_TRUE([watcher isEqual:[WRTDeviceWatcherBridge bridge:[watcher inner]]]);
}

const Member members[] = {
    {"DeviceAccessInformation.CreateFromId", createFromId},
    {"DeviceAccessInformation.CreateFromDeviceClassId", createFromDeviceClassId},
    {"DeviceAccessInformation.CreateFromDeviceClass", createFromDeviceClass},
    {"DeviceAccessInformation.CurrentStatus", currentStatus},
    {"DeviceAccessInformation.add_AccessChanged", addAccessChanged},
    {"DeviceAccessInformation.remove_AccessChanged", removeAccessChanged},
    {"DeviceInformation.CreateFromIdAsync", createFromIdAsync},
    {"DeviceInformation.CreateFromIdAsyncAdditionalProperties",
     createFromIdAsyncAdditionalProperties},
    {"DeviceInformation.FindAllAsync", findAllAsync},
    {"DeviceInformation.FindAllAsyncDeviceClass", findAllAsyncDeviceClass},
    {"DeviceInformation.FindAllAsyncAqsFilter", findAllAsyncAqsFilter},
    {"DeviceInformation.FindAllAsyncAqsFilterAndAdditionalProperties",
     findAllAsyncAqsFilterAndAdditionalProperties},
    {"DeviceInformation.CreateWatcher", createWatcher},
    {"DeviceInformation.CreateWatcherDeviceClass", createWatcherDeviceClass},
    {"DeviceInformation.CreateWatcherAqsFilter", createWatcherAqsFilter},
    {"DeviceInformation.CreateWatcherAqsFilterAndAdditionalProperties",
     createWatcherAqsFilterAndAdditionalProperties},
    {"DeviceInformation.GetAqsFilterFromDeviceClass", getAqsFilterFromDeviceClass},
    {"DeviceInformation.CreateFromIdAsyncWithKindAndAdditionalProperties",
     createFromIdAsyncWithKind},
    {"DeviceInformation.FindAllAsyncWithKindAqsFilterAndAdditionalProperties",
     findAllAsyncWithKind},
    {"DeviceInformation.CreateWatcherWithKindAqsFilterAndAdditionalProperties",
     createWatcherWithKind},
};

} // namespace
