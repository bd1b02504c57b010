// Windows.Gaming.Input: static events, and views of objects, which are empty without a controller.

#include "tests/wine/classes/Members.h"

#include <WRTBridge.h>
#include <WRTStatus.h>

#import <WRTObjcBridge/IVectorView.h>
#import <WRTObjcBridge/Windows.Gaming.Input.h>

using namespace wrt;
using namespace wrt::test;

namespace {

using Add = WRTEventRegistrationToken (*)(Class, SEL, id, NSError **);
using Remove = void (*)(Class, SEL, WRTEventRegistrationToken, NSError **);

/// Subscribes twice to a static event, then ends both subscriptions; the error goes to the first
/// call of the member that is tried.
void subscribe(const std::string &className, const char *event, bool triesRemove, NSError **error) {
  Class type = NSClassFromString([NSString stringWithFormat:@"WRT%sBridge", className.c_str()]);
  SEL adding = NSSelectorFromString([NSString stringWithFormat:@"add%sWithValue:error:", event]);
  SEL removing =
      NSSelectorFromString([NSString stringWithFormat:@"remove%sWithToken:error:", event]);
  const auto add = reinterpret_cast<Add>(reinterpret_cast<void *>([type methodForSelector:adding]));
  const auto remove =
      reinterpret_cast<Remove>(reinterpret_cast<void *>([type methodForSelector:removing]));
  const auto ignored = ^HRESULT(id, id) {
    return 0;
  };
  const long before = liveDelegates();
  const WRTEventRegistrationToken first = add(type, adding, ignored, triesRemove ? nullptr : error);
  const WRTEventRegistrationToken second = add(type, adding, ignored, nullptr);
  EXPECT_NE(first.value, second.value);
  EXPECT_EQ(2, liveDelegates() - before) << "kept by the class, which never dies";
  remove(type, removing, first, triesRemove ? error : nullptr);
  EXPECT_EQ(1, liveDelegates() - before);
  remove(type, removing, first, nullptr);
  EXPECT_EQ(1, liveDelegates() - before) << "a token counts once";
  remove(type, removing, second, nullptr);
  EXPECT_EQ(0, liveDelegates() - before);
}

/// The two members of a static event.
struct StaticEvent {
  StaticEvent(const std::string &type, const char *event)
      : add(type + ".add_" + event, [=](NSError **error) { subscribe(type, event, false, error); }),
        remove(type + ".remove_" + event,
               [=](NSError **error) { subscribe(type, event, true, error); }) {}
  Member add;
  Member remove;
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

const StaticEvent events[] = {
    {"Gamepad", "GamepadAdded"},
    {"Gamepad", "GamepadRemoved"},
    {"RawGameController", "RawGameControllerAdded"},
    {"RawGameController", "RawGameControllerRemoved"},
};
const Member members[] = {
    {"Gamepad.Gamepads", gamepads},
    {"RawGameController.RawGameControllers", rawGameControllers},
};

} // namespace
