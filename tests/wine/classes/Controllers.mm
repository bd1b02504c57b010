// Windows.Gaming.Input: static events, and views of objects, which are empty without a controller.

#include "tests/wine/classes/Members.h"

#include <WRTBridge.h>
#include <WRTStatus.h>

#import <WRTObjcBridge/IVectorView.h>
#import <WRTObjcBridge/Windows.Gaming.Input.h>

using namespace wrt;
using namespace wrt::test;

namespace {

using Add = WRTEventRegistrationToken (*)(NSError **);
using Remove = void (*)(WRTEventRegistrationToken, NSError **);

/// Subscribes twice, then ends both subscriptions; the error goes to the first call of the member
/// that is tried.
template <Add add, Remove remove, bool triesRemove>
void subscribe(NSError **error) {
  const long before = liveDelegates();
  const WRTEventRegistrationToken first = add(triesRemove ? nullptr : error);
  const WRTEventRegistrationToken second = add(nullptr);
  EXPECT_NE(first.value, second.value);
  EXPECT_EQ(2, liveDelegates() - before) << "kept by the class, which never dies";
  remove(first, triesRemove ? error : nullptr);
  EXPECT_EQ(1, liveDelegates() - before);
  remove(first, nullptr);
  EXPECT_EQ(1, liveDelegates() - before) << "a token counts once";
  remove(second, nullptr);
  EXPECT_EQ(0, liveDelegates() - before);
}

const auto ignored = ^HRESULT(id, id) {
  return 0;
};
constexpr Add addGamepadAdded = [](NSError **error) {
  return [WRTGamepadBridge addGamepadAddedWithValue:ignored error:error];
};
constexpr Add addGamepadRemoved = [](NSError **error) {
  return [WRTGamepadBridge addGamepadRemovedWithValue:ignored error:error];
};
constexpr Add addControllerAdded = [](NSError **error) {
  return [WRTRawGameControllerBridge addRawGameControllerAddedWithValue:ignored error:error];
};
constexpr Add addControllerRemoved = [](NSError **error) {
  return [WRTRawGameControllerBridge addRawGameControllerRemovedWithValue:ignored error:error];
};
constexpr Remove removeGamepadAdded = [](WRTEventRegistrationToken token, NSError **error) {
  [WRTGamepadBridge removeGamepadAddedWithToken:token error:error];
};
constexpr Remove removeGamepadRemoved = [](WRTEventRegistrationToken token, NSError **error) {
  [WRTGamepadBridge removeGamepadRemovedWithToken:token error:error];
};
constexpr Remove removeControllerAdded = [](WRTEventRegistrationToken token, NSError **error) {
  [WRTRawGameControllerBridge removeRawGameControllerAddedWithToken:token error:error];
};
constexpr Remove removeControllerRemoved = [](WRTEventRegistrationToken token, NSError **error) {
  [WRTRawGameControllerBridge removeRawGameControllerRemovedWithToken:token error:error];
};

void gamepads(NSError **error) {
  id<WRTIVectorView__1_WRTGamepad_P_Bridge> view = [WRTGamepadBridge getGamepadsWithError:error];
  NSError *ownError = nil;
  EXPECT_EQ(0u, [view getSizeWithError:&ownError]);
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

const Member members[] = {
    {"Gamepad.add_GamepadAdded", subscribe<addGamepadAdded, removeGamepadAdded, false>},
    {"Gamepad.remove_GamepadAdded", subscribe<addGamepadAdded, removeGamepadAdded, true>},
    {"Gamepad.add_GamepadRemoved", subscribe<addGamepadRemoved, removeGamepadRemoved, false>},
    {"Gamepad.remove_GamepadRemoved", subscribe<addGamepadRemoved, removeGamepadRemoved, true>},
    {"RawGameController.add_RawGameControllerAdded",
     subscribe<addControllerAdded, removeControllerAdded, false>},
    {"RawGameController.remove_RawGameControllerAdded",
     subscribe<addControllerAdded, removeControllerAdded, true>},
    {"RawGameController.add_RawGameControllerRemoved",
     subscribe<addControllerRemoved, removeControllerRemoved, false>},
    {"RawGameController.remove_RawGameControllerRemoved",
     subscribe<addControllerRemoved, removeControllerRemoved, true>},
    {"Gamepad.Gamepads", gamepads},
    {"RawGameController.RawGameControllers", rawGameControllers},
};

} // namespace
