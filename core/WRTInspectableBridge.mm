#import <WRTObjcBridge/WRTInspectableBridge.h>

#include <WRTBridge.h>
#include <WRTBridgeUtil.h>
#include <WRTObjcBridge/WRTConversions.h>
#include <WRTStatus.h>
#include <WRTUnknown.h>

namespace {

/// IInspectable (Windows 10 SDK 10.0.16299.0, inspectable.h).
constexpr GUID kInspectableIid = {
    0xAF86E2E0, 0xB12D, 0x4C6A, {0x9C, 0x5A, 0xD7, 0xAA, 0x65, 0x10, 0x1E, 0x90}};

/// The frame of the three methods: asks `bridge` for its interface, lets `call` use it unless that
/// fails, and tells the caller the outcome, which is what `call` returns.
template <class Call>
void withInterface(WRTInspectableBridge *bridge, NSError **error, Call call) {
  NSError *failure = nil;
  WRTIInspectable *interface = [bridge _WRTIInspectableWithError:&failure];
  if (!failure)
    failure = interface ? call(interface) : WRTCreateNSErrorFromHRESULT(wrt::status::kNoInterface);
  WRTIUnknownSafeRelease(interface);
  if (error)
    *error = failure;
}

/// Calls a slot of the interface's table, counted from its start.
template <class... Arguments>
HRESULT callSlot(WRTIInspectable *interface, unsigned slot, Arguments... arguments) {
  using Function = HRESULT(WRT_ABI *)(void *, Arguments...);
  return reinterpret_cast<const Function *>(interface->lpVtbl)[slot](interface, arguments...);
}

} // namespace

@implementation WRTInspectableBridge

- (GUID *)getIids:(unsigned int *)count error:(NSError **)error {
  GUID *iids = nullptr;
  withInterface(self, error, [&](WRTIInspectable *interface) -> NSError * {
    callSlot(interface, 0, count, &iids);
    return nil;
  });
  return iids;
}

- (NSString *)getRuntimeClassNameWithError:(NSError **)error {
  NSString *string = nil;
  withInterface(self, error, [&](WRTIInspectable *interface) {
    HSTRING name = nullptr;
    const HRESULT status = callSlot(interface, 1, &name);
    if (status >= 0) {
      string = WRTHSTRINGToCFString(name);
      WRTHSTRINGRelease(name);
    }
    return WRTCreateNSErrorFromHRESULT(status);
  });
  return [string autorelease];
}

- (int)getTrustLevelWithError:(NSError **)error {
  int32_t level = 0;
  withInterface(self, error, [&](WRTIInspectable *interface) {
    return WRTCreateNSErrorFromHRESULT(callSlot(interface, 2, &level));
  });
  return level;
}

- (WRTIInspectable *)_WRTIInspectableWithError:(NSError **)error {
  return static_cast<WRTIInspectable *>([self queryInterfaceWithGUID:kInspectableIid error:error]);
}

@end
