#import <WRTObjcBridge/WRTUnknownBridge.h>

#include <ClassReceiver.h>
#include <WRTBridge.h>
#include <WRTObjcBridge/WRTConversions.h>
#include <WRTUnknown.h>

#include "core/Log.h"
#include "core/Retained.h"

namespace log = wrt::log;

@implementation WRTUnknownBridge

@synthesize inner = _inner_obj;

+ (instancetype)bridgeTransfer:(void *)object {
  if (!object) {
    log::write(log::kSuspicious, log::coreContext, __func__, __LINE__,
               @"+[%@ bridgeTransfer:] cannot bridge nil inner object!", self);
    return nil;
  }
  return [[[self alloc] initWithInner:object] autorelease];
}

+ (instancetype)bridge:(void *)object {
  if (!object) {
    log::write(log::kSuspicious, log::coreContext, __func__, __LINE__,
               @"+[%@ bridge:] cannot bridge nil inner object!", self);
    return nil;
  }
  WRTIUnknownAddRef(object);
  return [[[self alloc] initWithInner:object] autorelease];
}

+ (instancetype)cast:(id)object {
  if (!object)
    return nil;
  wrt::Retained<> retained(object);
  if ([object class] == self)
    return retained.autorelease();
  return [self bridge:[static_cast<WRTUnknownBridge *>(object) inner]];
}

+ (void *)activateInstance {
  return nullptr;
}

+ (void *)queryInterface:(void *)object withGUID:(GUID)guid error:(NSError **)error {
  void *interface = nullptr;
  const HRESULT status = WRTIUnknownQueryInterface(object, &guid, &interface);
  if (status < 0) {
    log::write(log::kFailure, log::coreContext, __func__, __LINE__, @"Failed QueryInterface %lx",
               static_cast<unsigned long>(static_cast<uint32_t>(status)));
    interface = nullptr;
  }
  if (error)
    *error = status < 0 ? WRTCreateNSErrorFromHRESULT(status) : nil;
  return interface;
}

- (instancetype)initWithInner:(void *)object {
  self = [super init];
  if (self)
    _inner_obj = object;
  return self;
}

- (instancetype)init {
  void *object = [[self class] activateInstance];
  if (object)
    return [self initWithInner:object];
  log::write(log::kFailure, log::coreContext, __func__, __LINE__,
             @"Tried to create %@ with default constructor, which it doesn't support!",
             [self class]);
  [self release];
  return nil;
}

- (void)dealloc {
  WRTIUnknownSafeRelease(_inner_obj);
  [super dealloc];
}

// Sent to the root class, so that no subclass can change what a query does.
- (void *)queryInterfaceWithGUID:(GUID)guid error:(NSError **)error {
  return [WRT_CLASS(WRTUnknownBridge) queryInterface:_inner_obj withGUID:guid error:error];
}

- (WRTIUnknown *)_WRTIUnknownWithError:(NSError **)error {
  return static_cast<WRTIUnknown *>([self queryInterfaceWithGUID:WRTIUnknownGetUUID() error:error]);
}

// Two failed queries compare equal: both identities are null then.
- (BOOL)isEqual:(id)other {
  wrt::Retained<> retained(other);
  if (self == other)
    return YES;
  // A class answers itself when it is asked for its class.
  if ([self class] != [other class] || [self class] == other)
    return NO;
  NSError *ignored = nil;
  NSError *alsoIgnored = nil;
  WRTIUnknown *mine = [self _WRTIUnknownWithError:&ignored];
  WRTIUnknown *others = [static_cast<WRTUnknownBridge *>(other) _WRTIUnknownWithError:&alsoIgnored];
  WRTIUnknownSafeRelease(mine);
  WRTIUnknownSafeRelease(others);
  return mine == others;
}

@end
