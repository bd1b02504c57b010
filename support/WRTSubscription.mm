#import <WRTSupport/WRTSubscription.h>

#include "support/implement/Failure.h"

using namespace wrt;

namespace {

using Remove = void (*)(id, SEL, WRTEventRegistrationToken, NSError **);

} // namespace

@implementation WRTSubscription
- (instancetype)initWithSender:(id)sender
                         token:(WRTEventRegistrationToken)token
                        remove:(SEL)remove {
  self = [super init];
  if (self) {
    _sender = [sender retain];
    _token = token;
    _remove = remove;
  }
  return self;
}

- (void)dealloc {
  [self cancel];
  [super dealloc];
}

- (BOOL)isActive {
  return __atomic_load_n(&_sender, __ATOMIC_ACQUIRE) != nullptr;
}

- (void)cancel {
  id sender = static_cast<id>(
      __atomic_exchange_n(&_sender, static_cast<void *>(nullptr), __ATOMIC_ACQ_REL));
  if (!sender)
    return;
  const auto remove =
      reinterpret_cast<Remove>(reinterpret_cast<void *>([sender methodForSelector:_remove]));
  remove(sender, _remove, _token, nullptr);
  [sender release];
}
@end

WRTSubscription *WRTSubscriptionOf(id sender, WRTEventRegistrationToken token, SEL remove,
                                   NSError *failure, NSError **error) {
  if (!sender)
    failure = WRTCreateNSErrorFromHRESULT(status::kPointer);
  if (error)
    *error = failure;
  if (failure)
    return nil;
  return [[[WRTSubscription alloc] initWithSender:sender token:token remove:remove] autorelease];
}
