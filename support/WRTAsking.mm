#import <WRTSupport/WRTAsking.h>

#include "support/implement/Protocol.h"

#include <WRTBridge.h>
#import <WRTObjcBridge/WRTConversions.h>
#include <WRTStatus.h>

namespace {

NSError *mark() {
  static NSError *const error = [[NSError alloc] initWithDomain:@"WRTMark" code:0 userInfo:nil];
  return error;
}

using Accessor = void *(*)(id, SEL, NSError **);

} // namespace

/// Stands for a bridge in front of an accessor and learns the identifier that it asks for.
@interface WRTIdentifierProbe : NSObject {
@public
  GUID _iid;
  BOOL _isAsked;
}
@end

@implementation WRTIdentifierProbe
- (void *)queryInterfaceWithGUID:(GUID)guid error:(NSError **)error {
  (void)error;
  _iid = guid;
  _isAsked = YES;
  return nullptr;
}
@end

void WRTMarkError(NSError **error) {
  if (error)
    *error = mark();
}

void WRTSettleError(NSError **error) {
  if (error && *error == mark())
    *error = WRTCreateNSErrorFromHRESULT(wrt::status::kNoInterface);
}

BOOL WRTSupports(id<WRTIUnknownBridge> object, Protocol *protocol) {
  // WRTIFooBridge, WRTIFoo__1_WRTBar_P_Bridge: the class of that name has the accessor.
  NSString *name = wrt::support::nameOf(protocol);
  if (![name hasSuffix:@"Bridge"])
    return NO;
  NSString *stem = [name substringToIndex:[name length] - [@"Bridge" length]];
  if ([stem hasSuffix:@"_"])
    stem = [stem substringToIndex:[stem length] - 1];
  const SEL selector = NSSelectorFromString([NSString stringWithFormat:@"_%@WithError:", stem]);
  const Class bridge = NSClassFromString(name);
  if (![object inner] || ![bridge instancesRespondToSelector:selector])
    return NO;
  WRTIdentifierProbe *probe = [[[WRTIdentifierProbe alloc] init] autorelease];
  const auto accessor = reinterpret_cast<Accessor>(
      reinterpret_cast<void *>([bridge instanceMethodForSelector:selector]));
  accessor(probe, selector, nullptr);
  void *interface = nullptr;
  if (!probe->_isAsked ||
      WRTIUnknownQueryInterface([object inner], &probe -> _iid, &interface) < 0 || !interface)
    return NO;
  WRTIUnknownRelease(interface);
  return YES;
}
