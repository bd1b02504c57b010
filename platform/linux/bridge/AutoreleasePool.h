#ifndef WRT_AUTORELEASE_POOL_H
#define WRT_AUTORELEASE_POOL_H

#include <ClassReceiver.h>
#import <Foundation/NSAutoreleasePool.h>

namespace wrt {

/// An autorelease pool for the scope. `@autoreleasepool` would look its class up by name.
class AutoreleasePool {
public:
  AutoreleasePool() : pool_([[WRT_CLASS(NSAutoreleasePool) alloc] init]) {}
  AutoreleasePool(const AutoreleasePool &) = delete;
  AutoreleasePool &operator=(const AutoreleasePool &) = delete;
  ~AutoreleasePool() { [pool_ drain]; }

private:
  NSAutoreleasePool *pool_;
};

} // namespace wrt

#endif
