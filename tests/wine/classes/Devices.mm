// Windows.Devices.Enumeration: objects made by factories, a GUID by value, events of an instance.

#include "tests/wine/classes/Members.h"

#import <WRTObjcBridge/Windows.Devices.Enumeration.h>

namespace wrt::test {

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

WRTDeviceAccessInformationBridge *newAccess(NSError **error = nullptr) {
  return [WRTDeviceAccessInformationBridge createFromDeviceClassWithDeviceClass:kAudioCapture
                                                                          error:error];
}

WRTDeviceWatcherBridge *newWatcher(NSError **error = nullptr) {
  return [WRTDeviceInformationBridge
      createWatcherWithKindAqsFilterAndAdditionalPropertiesWithAqsFilter:nil
                                                    additionalProperties:nil
                                                                    kind:1
                                                                   error:error];
}

/// Subscribes a handler that counts its calls, of which it checks the arguments.
WRTEventRegistrationToken countStopped(WRTDeviceWatcherBridge *watcher, int *calls,
                                       NSError **error = nullptr) {
  return [watcher
      addStoppedWithHandler:^HRESULT(WRTDeviceWatcherBridge *sender,
                                     id<WRTIInspectableBridge> arguments) {
        ++*calls;
        EXPECT_TRUE([sender isEqual:watcher]);
        EXPECT_EQ(nil, arguments);
        return 0;
      }
                      error:error];
}

// The token decides: of two subscriptions the one that it stands for goes.
void removeStopped(NSError **error) {
  WRTDeviceWatcherBridge *watcher = newWatcher();
  const long before = liveDelegates();
  int first = 0;
  int second = 0;
  const WRTEventRegistrationToken token = countStopped(watcher, &first);
  const WRTEventRegistrationToken other = countStopped(watcher, &second);
  EXPECT_NE(token.value, other.value);
  EXPECT_EQ(2, liveDelegates() - before);
  [watcher removeStoppedWithToken:token error:error];
  EXPECT_EQ(1, liveDelegates() - before) << "WinRT gave its reference up";
  [watcher startWithError:nullptr];
  [watcher stopWithError:nullptr];
  EXPECT_EQ(0, first);
  EXPECT_EQ(1, second);
  NSError *again = nil;
  [watcher removeStoppedWithToken:token error:&again];
  EXPECT_EQ(nil, again) << "twice is no failure";
  [watcher removeStoppedWithToken:other error:nullptr];
  EXPECT_EQ(0, liveDelegates() - before);
}

const Member members[] = {
    {"DeviceAccessInformation.CreateFromId",
     [](NSError **error) {
       expectAccess([WRTDeviceAccessInformationBridge createFromIdWithDeviceId:@"\\\\?\\none"
                                                                         error:error]);
     }},
    {"DeviceAccessInformation.CreateFromDeviceClassId",
     [](NSError **error) {
       expectAccess([WRTDeviceAccessInformationBridge
           createFromDeviceClassIdWithDeviceClassId:kDeviceClassId
                                              error:error]);
     }},
    {"DeviceAccessInformation.CreateFromDeviceClass",
     [](NSError **error) { expectAccess(newAccess(error)); }},
    {"DeviceAccessInformation.CurrentStatus",
     [](NSError **error) { EXPECT_EQ(kAllowed, [newAccess() getCurrentStatusWithError:error]); }},
    {"DeviceInformation.CreateWatcherWithKindAqsFilterAndAdditionalProperties",
     [](NSError **error) {
       WRTDeviceWatcherBridge *watcher = newWatcher(error);
       EXPECT_EQ([WRTDeviceWatcherBridge class], [watcher class]);
       EXPECT_TRUE([watcher isEqual:[WRTDeviceWatcherBridge bridge:[watcher inner]]]);
     }},
    {"DeviceWatcher.add_Stopped",
     [](NSError **error) {
       WRTDeviceWatcherBridge *watcher = newWatcher();
       const long before = liveDelegates();
       int calls = 0;
       const WRTEventRegistrationToken token = countStopped(watcher, &calls, error);
       EXPECT_NE(0, token.value);
       EXPECT_EQ(1, liveDelegates() - before);
       [watcher removeStoppedWithToken:token error:nullptr];
     }},
    {"DeviceWatcher.remove_Stopped", removeStopped},
    {"DeviceWatcher.Stop",
     [](NSError **error) {
       WRTDeviceWatcherBridge *watcher = newWatcher();
       int calls = 0;
       const WRTEventRegistrationToken token = countStopped(watcher, &calls);
       [watcher startWithError:nullptr];
       [watcher stopWithError:error];
       EXPECT_EQ(1, calls);
       [watcher removeStoppedWithToken:token error:nullptr];
     }},
};

} // namespace

id newInstance(const std::string &className) {
  return className == "DeviceWatcher"             ? static_cast<id>(newWatcher())
         : className == "DeviceAccessInformation" ? static_cast<id>(newAccess())
                                                  : nil;
}

} // namespace wrt::test
