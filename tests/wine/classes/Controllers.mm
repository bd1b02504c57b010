// Windows.Gaming.Input: static events, and views of objects, which are empty without a controller.

#include "tests/wine/classes/Members.h"

#include <WRTBridge.h>
#include <WRTStatus.h>

#import <WRTObjcBridge/IVectorView.h>
#import <WRTObjcBridge/Windows.Gaming.Input.h>

using namespace wrt;
using namespace wrt::test;

namespace {

using GamepadHandler = HRESULT (^)(id<WRTIInspectableBridge>, WRTGamepadBridge *);
const GamepadHandler ignoreGamepad = ^HRESULT(id<WRTIInspectableBridge>, WRTGamepadBridge *) {
  return 0;
};
using ControllerHandler = HRESULT (^)(id<WRTIInspectableBridge>, WRTRawGameControllerBridge *);
const ControllerHandler ignoreController =
    ^HRESULT(id<WRTIInspectableBridge>, WRTRawGameControllerBridge *) {
      return 0;
    };

/// Subscribes twice, then ends both subscriptions; `error` goes to the first call of `tried`, which
/// is 0 for the add member and 1 for the remove member.
template <class Add, class Remove>
void subscribe(int tried, NSError **error, Add add, Remove remove) {
  const long before = liveDelegates();
  const WRTEventRegistrationToken first = add(tried == 0 ? error : nullptr);
  const WRTEventRegistrationToken second = add(nullptr);
  EXPECT_NE(first.value, second.value);
  EXPECT_EQ(2, liveDelegates() - before) << "kept by the class, which never dies";
  remove(first, tried == 1 ? error : nullptr);
  EXPECT_EQ(1, liveDelegates() - before);
  remove(first, nullptr);
  EXPECT_EQ(1, liveDelegates() - before) << "a token counts once";
  remove(second, nullptr);
  EXPECT_EQ(0, liveDelegates() - before);
}

template <int tried>
void gamepadAdded(NSError **error) {
  subscribe(
      tried, error,
      [](NSError **e) { return [WRTGamepadBridge addGamepadAddedWithValue:ignoreGamepad error:e]; },
      [](WRTEventRegistrationToken token, NSError **e) {
        [WRTGamepadBridge removeGamepadAddedWithToken:token error:e];
      });
}
template <int tried>
void gamepadRemoved(NSError **error) {
  subscribe(
      tried, error,
      [](NSError **e) {
        return [WRTGamepadBridge addGamepadRemovedWithValue:ignoreGamepad error:e];
      },
      [](WRTEventRegistrationToken token, NSError **e) {
        [WRTGamepadBridge removeGamepadRemovedWithToken:token error:e];
      });
}
template <int tried>
void controllerAdded(NSError **error) {
  subscribe(
      tried, error,
      [](NSError **e) {
        return [WRTRawGameControllerBridge addRawGameControllerAddedWithValue:ignoreController
                                                                        error:e];
      },
      [](WRTEventRegistrationToken token, NSError **e) {
        [WRTRawGameControllerBridge removeRawGameControllerAddedWithToken:token error:e];
      });
}
template <int tried>
void controllerRemoved(NSError **error) {
  subscribe(
      tried, error,
      [](NSError **e) {
        return [WRTRawGameControllerBridge addRawGameControllerRemovedWithValue:ignoreController
                                                                          error:e];
      },
      [](WRTEventRegistrationToken token, NSError **e) {
        [WRTRawGameControllerBridge removeRawGameControllerRemovedWithToken:token error:e];
      });
}

void gamepads(NSError **error) {
  id<WRTIVectorView__1_WRTGamepad_P_Bridge> view = [WRTGamepadBridge getGamepadsWithError:error];
  NSError *ownError = nil;
  EXPECT_EQ(0u, [view getSizeWithError:&ownError]);
  EXPECT_EQ(nil, ownError);
  unsigned index = 77;
  EXPECT_FALSE([view indexOfWithItem:nil index:&index error:&ownError]);
  EXPECT_EQ(nil, ownError);
  EXPECT_EQ(nil, [view getAtWithIndex:0 error:&ownError]);
  EXPECT_EQ(status::kBounds, [ownError code]);
  // This Wine finds a start index of 0 out of range when there is nothing.
  EXPECT_EQ(nil, [view getManyWithStartIndex:0 capacity:2 error:&ownError]);
  EXPECT_EQ(status::kBounds, [ownError code]);
}

void rawGameControllers(NSError **error) {
  id<WRTIVectorView__1_WRTRawGameController_P_Bridge> view =
      [WRTRawGameControllerBridge getRawGameControllersWithError:error];
  EXPECT_EQ([WRTIVectorView__1_WRTRawGameController_P_Bridge class], [static_cast<id>(view) class]);
  // The bridge has no members, but Wine's object has to answer to its identifier.
  NSError *ownError = nil;
  void *interface = [view _WRTIVectorView__1_WRTRawGameController_PWithError:&ownError];
  EXPECT_NE(nullptr, interface);
  EXPECT_EQ(nil, ownError);
  WRTIUnknownSafeRelease(interface);
}

// No controller is no gamepad, and no failure either.
void gamepadFromGameController(NSError **error) {
  EXPECT_EQ(nil, [WRTGamepadBridge fromGameControllerWithGameController:nil error:error]);
}
void rawFromGameController(NSError **error) {
  EXPECT_EQ(nil, [WRTRawGameControllerBridge fromGameControllerWithGameController:nil error:error]);
}

const Member members[] = {
    {"Gamepad.add_GamepadAdded", gamepadAdded<0>},
    {"Gamepad.remove_GamepadAdded", gamepadAdded<1>},
    {"Gamepad.add_GamepadRemoved", gamepadRemoved<0>},
    {"Gamepad.remove_GamepadRemoved", gamepadRemoved<1>},
    {"Gamepad.Gamepads", gamepads},
    {"Gamepad.FromGameController", gamepadFromGameController},
    {"RawGameController.add_RawGameControllerAdded", controllerAdded<0>},
    {"RawGameController.remove_RawGameControllerAdded", controllerAdded<1>},
    {"RawGameController.add_RawGameControllerRemoved", controllerRemoved<0>},
    {"RawGameController.remove_RawGameControllerRemoved", controllerRemoved<1>},
    {"RawGameController.RawGameControllers", rawGameControllers},
    {"RawGameController.FromGameController", rawFromGameController},
};

} // namespace
