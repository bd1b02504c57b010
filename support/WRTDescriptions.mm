#import <WRTSupport/WRTDescriptions.h>

#import <WRTObjcBridge/WRTConversions.h>

#include <WRTAbi.h>
#include <WRTBridge.h>

using namespace wrt;

namespace {

/// The same object's interface, borrowed: it lives as long as the object. Null when it has none.
void *borrow(void *object, const GUID &iid) {
  void *interface = nullptr;
  if (!object || WRTIUnknownQueryInterface(object, &iid, &interface) < 0)
    return nullptr;
  WRTIUnknownSafeRelease(interface);
  return interface;
}

/// What the object answers in slot 4; nil when it answers nothing.
NSString *runtimeClassName(void *object) {
  auto *inspectable = static_cast<abi::IInspectable *>(borrow(object, abi::IInspectable::kIid));
  HSTRING name = nullptr;
  if (!inspectable || inspectable->GetRuntimeClassName(&name) < 0 || !name)
    return nil;
  NSString *text = WRTCreateNSStringFromHSTRING(name);
  WRTHSTRINGRelease(name);
  return text;
}

} // namespace

// The class has no description of its own, only its superclass's.
@implementation WRTUnknownBridge (WRTDescriptions)
- (NSString *)description {
  NSString *name = runtimeClassName([self inner]);
  return [NSString stringWithFormat:@"<%@ %p: %@%@%p>", NSStringFromClass([self class]),
                                    static_cast<void *>(self), name ? name : @"", name ? @" " : @"",
                                    borrow([self inner], WRTIUnknownGetUUID())];
}
@end

@implementation WRTKeyValuePair (WRTDescriptions)
- (NSString *)description {
  return [NSString stringWithFormat:@"%@ = %@", [self key], [self value]];
}
@end

@implementation WRTSubscription (WRTDescriptions)
- (NSString *)description {
  return [NSString stringWithFormat:@"<WRTSubscription %p: %@>", static_cast<void *>(self),
                                    [self isActive] ? @"active" : @"cancelled"];
}
@end
