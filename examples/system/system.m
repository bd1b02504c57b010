// Asks the system about itself: languages, devices, controllers. What it prints depends on whose
// WinRT answers; the embedded platform of the Linux build has none of these classes, Wine has some
// of each.

#import <Foundation/Foundation.h>
#import <WRTObjcBridge/IVectorView.h>
#import <WRTObjcBridge/Windows.Devices.Enumeration.h>
#import <WRTObjcBridge/Windows.Foundation.Metadata.h>
#import <WRTObjcBridge/Windows.Gaming.Input.h>
#import <WRTObjcBridge/Windows.System.UserProfile.h>

#include <stdio.h>

/// What a member answered: the error's code in hexadecimal, or `value`.
static const char *answer(NSError *error, NSString *value) {
  if (error)
    return [[NSString stringWithFormat:@"error 0x%08x", (unsigned)[error code]] UTF8String];
  return value ? [value UTF8String] : "nothing";
}

static NSString *number(long value) { return [NSString stringWithFormat:@"%ld", value]; }

static void showUser(void) {
  NSError *error = nil;
  id<WRTIVectorView__1_WRTHSTRING_Bridge> languages =
      [WRTGlobalizationPreferencesBridge getLanguagesWithError:&error];
  NSArray *all = [languages getManyWithStartIndex:0
                                         capacity:[languages getSizeWithError:NULL]
                                            error:NULL];
  printf("  languages            %s\n", answer(error, [all componentsJoinedByString:@", "]));
  NSString *region = [WRTGlobalizationPreferencesBridge getHomeGeographicRegionWithError:&error];
  printf("  home region          %s\n", answer(error, region));
  int day = [WRTGlobalizationPreferencesBridge getWeekStartsOnWithError:&error];
  printf("  week starts on day   %s\n", answer(error, number(day)));
}

static void showDevices(void) {
  NSError *error = nil;
  // GUID_DEVINTERFACE_HID (hidclass.h)
  GUID hid = {0x4d1e55b2, 0xf16f, 0x11cf, {0x88, 0xcb, 0x00, 0x11, 0x11, 0x00, 0x00, 0x30}};
  WRTDeviceAccessInformationBridge *access =
      [WRTDeviceAccessInformationBridge createFromDeviceClassIdWithDeviceClassId:hid error:&error];
  int status = [access getCurrentStatusWithError:&error];
  printf("  access to HID        %s\n", answer(error, number(status)));

  WRTDeviceWatcherBridge *watcher = [WRTDeviceInformationBridge
      createWatcherWithKindAqsFilterAndAdditionalPropertiesWithAqsFilter:nil
                                                    additionalProperties:nil
                                                                    kind:1
                                                                   error:&error];
  __block int calls = 0;
  WRTEventRegistrationToken token = [watcher
      addStoppedWithHandler:^HRESULT(WRTDeviceWatcherBridge *sender,
                                     id<WRTIInspectableBridge> args) {
        (void)args;
        calls += [sender isEqual:watcher] ? 1 : 0;
        return 0;
      }
                      error:&error];
  [watcher startWithError:&error];
  [watcher stopWithError:&error];
  [watcher removeStoppedWithToken:token error:NULL];
  printf("  watcher              %s\n",
         answer(error, [NSString stringWithFormat:@"started and stopped, handler called %d time(s)",
                                                  calls]));
}

static void showControllers(void) {
  NSError *error = nil;
  id<WRTIVectorView__1_WRTGamepad_P_Bridge> gamepads =
      [WRTGamepadBridge getGamepadsWithError:&error];
  printf("  gamepads             %s\n", answer(error, number([gamepads getSizeWithError:NULL])));
}

static void showContracts(void) {
  NSError *error = nil;
  NSString *contract = @"Windows.Foundation.UniversalApiContract";
  bool isThere = [WRTApiInformationBridge isApiContractPresentByMajorWithContractName:contract
                                                                         majorVersion:1
                                                                                error:&error];
  printf("  universal contract   %s\n", answer(error, isThere ? @"yes" : @"no"));
  [WRTApiInformationBridge isTypePresentWithTypeName:@"Windows.Gaming.Input.Gamepad" error:&error];
  printf("  IsTypePresent        %s\n", answer(error, @"answered"));
}

int main(void) {
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  NSError *error = nil;
  // A member swallows that its class is missing, the accessor tells.
  if (![WRTGlobalizationPreferencesBridge _WRTIGlobalizationPreferencesStaticsWithError:&error]) {
    printf("This WinRT does not have the system's classes (0x%08x).\n", (unsigned)[error code]);
    [pool release];
    return 1;
  }
  printf("What WinRT says of this system:\n");
  showUser();
  showDevices();
  showControllers();
  showContracts();
  [pool release];
  return 0;
}
