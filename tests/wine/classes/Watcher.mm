// Windows.Devices.Enumeration.DeviceWatcher: events of an instance.

#include "tests/wine/classes/Members.h"

#include <WRTBridge.h>

#import <WRTObjcBridge/Windows.Devices.Enumeration.h>

using namespace wrt::test;

namespace {

WRTDeviceWatcherBridge *newWatcher() {
  return [WRTDeviceInformationBridge
      createWatcherWithKindAqsFilterAndAdditionalPropertiesWithAqsFilter:nil
                                                    additionalProperties:nil
                                                                    kind:1
                                                                   error:nullptr];
}

using Added = HRESULT (^)(WRTDeviceWatcherBridge *, WRTDeviceInformationBridge *);
using Updated = HRESULT (^)(WRTDeviceWatcherBridge *, WRTDeviceInformationUpdateBridge *);
using Ended = HRESULT (^)(WRTDeviceWatcherBridge *, id<WRTIInspectableBridge>);
const Added ignoreAdded = ^HRESULT(WRTDeviceWatcherBridge *, WRTDeviceInformationBridge *) {
  return 0;
};
const Updated ignoreUpdated =
    ^HRESULT(WRTDeviceWatcherBridge *, WRTDeviceInformationUpdateBridge *) {
      return 0;
    };
const Ended ignoreEnded = ^HRESULT(WRTDeviceWatcherBridge *, id<WRTIInspectableBridge>) {
  return 0;
};

/// How many delegates `subscribe` leaves alive.
template <class Subscribe>
void expectKept(Subscribe subscribe) {
  WRTDeviceWatcherBridge *watcher = newWatcher();
  const long before = liveDelegates();
  const WRTEventRegistrationToken token = subscribe(watcher);
  EXPECT_EQ(expectedAnswer() == Answer::Works ? 1 : 0, liveDelegates() - before);
  if (expectedAnswer() == Answer::Works)
    EXPECT_NE(0, token.value);
}

void addAdded(NSError **error) {
  expectKept([&](WRTDeviceWatcherBridge *watcher) {
    return [watcher addAddedWithHandler:ignoreAdded error:error];
  });
}
void addUpdated(NSError **error) {
  expectKept([&](WRTDeviceWatcherBridge *watcher) {
    return [watcher addUpdatedWithHandler:ignoreUpdated error:error];
  });
}
void addRemoved(NSError **error) {
  expectKept([&](WRTDeviceWatcherBridge *watcher) {
    return [watcher addRemovedWithHandler:ignoreUpdated error:error];
  });
}
void addEnumerationCompleted(NSError **error) {
  expectKept([&](WRTDeviceWatcherBridge *watcher) {
    return [watcher addEnumerationCompletedWithHandler:ignoreEnded error:error];
  });
}
void addStopped(NSError **error) {
  expectKept([&](WRTDeviceWatcherBridge *watcher) {
    return [watcher addStoppedWithHandler:ignoreEnded error:error];
  });
}

constexpr WRTEventRegistrationToken kNoToken = {12345};

void removeAdded(NSError **error) { [newWatcher() removeAddedWithToken:kNoToken error:error]; }
void removeUpdated(NSError **error) { [newWatcher() removeUpdatedWithToken:kNoToken error:error]; }
void removeRemoved(NSError **error) { [newWatcher() removeRemovedWithToken:kNoToken error:error]; }
void removeEnumerationCompleted(NSError **error) {
  [newWatcher() removeEnumerationCompletedWithToken:kNoToken error:error];
}

// The token decides: of two subscriptions the one that it stands for goes.
void removeStopped(NSError **error) {
  WRTDeviceWatcherBridge *watcher = newWatcher();
  const long before = liveDelegates();
  __block int first = 0;
  __block int second = 0;
  const WRTEventRegistrationToken token = [watcher
      addStoppedWithHandler:^HRESULT(WRTDeviceWatcherBridge *, id<WRTIInspectableBridge>) {
        ++first;
        return 0;
      }
                      error:nullptr];
  const WRTEventRegistrationToken other = [watcher
      addStoppedWithHandler:^HRESULT(WRTDeviceWatcherBridge *, id<WRTIInspectableBridge>) {
        ++second;
        return 0;
      }
                      error:nullptr];
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

void statusOf(NSError **error) { EXPECT_EQ(0, [newWatcher() getStatusWithError:error]); }

void start(NSError **error) { [newWatcher() startWithError:error]; }

// The handler gets the watcher itself and, as arguments, null.
void stop(NSError **error) {
  WRTDeviceWatcherBridge *watcher = newWatcher();
  __block int calls = 0;
  __block BOOL isSender = NO;
  __block BOOL hasArguments = YES;
  const WRTEventRegistrationToken token = [watcher
      addStoppedWithHandler:^HRESULT(WRTDeviceWatcherBridge *sender,
                                     id<WRTIInspectableBridge> arguments) {
        ++calls;
        isSender = [sender isEqual:watcher];
        hasArguments = arguments != nil;
        return 0;
      }
                      error:nullptr];
  [watcher startWithError:nullptr];
  [watcher stopWithError:error];
  EXPECT_EQ(1, calls);
  EXPECT_TRUE(isSender);
  EXPECT_FALSE(hasArguments);
  [watcher removeStoppedWithToken:token error:nullptr];
}

void getBackgroundTrigger(NSError **error) {
  EXPECT_EQ(nil, [newWatcher() getBackgroundTriggerWithRequestedEventKinds:nil error:error]);
}

const Member members[] = {
    {"DeviceWatcher.add_Added", addAdded},
    {"DeviceWatcher.remove_Added", removeAdded},
    {"DeviceWatcher.add_Updated", addUpdated},
    {"DeviceWatcher.remove_Updated", removeUpdated},
    {"DeviceWatcher.add_Removed", addRemoved},
    {"DeviceWatcher.remove_Removed", removeRemoved},
    {"DeviceWatcher.add_EnumerationCompleted", addEnumerationCompleted},
    {"DeviceWatcher.remove_EnumerationCompleted", removeEnumerationCompleted},
    {"DeviceWatcher.add_Stopped", addStopped},
    {"DeviceWatcher.remove_Stopped", removeStopped},
    {"DeviceWatcher.Status", statusOf},
    {"DeviceWatcher.Start", start},
    {"DeviceWatcher.Stop", stop},
    {"DeviceWatcher.GetBackgroundTrigger", getBackgroundTrigger},
};

} // namespace
