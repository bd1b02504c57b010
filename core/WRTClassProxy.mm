#import <WRTObjcBridge/WRTClassProxy.h>

#include "core/Log.h"

namespace log = wrt::log;

@implementation WRTClassProxy

+ (void *)activateInstance {
  log::write(log::kFatal, log::coreContext, __func__, __LINE__,
             @"Can't activate instance of %@ because this is a proxy class. You must generate a "
             @"full bridge for this interface to construct instances or call methods.",
             self);
  XPAbortWithBacktrace();
}

@end
