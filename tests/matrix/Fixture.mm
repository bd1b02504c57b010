#include "tests/matrix/Fixture.h"

#include <WRTBridge.h>

#include <utility>

@implementation OddArray
- (instancetype)initWithCount:(int)count {
  _count = static_cast<NSUInteger>(count);
  return self;
}
- (NSUInteger)count {
  return _count;
}
- (id)objectAtIndex:(NSUInteger)index {
  if (index > 0)
    [NSException raise:NSRangeException format:@"no element %lu", (unsigned long)index];
  return nil;
}
@end

@implementation FullArray
- (NSUInteger)count {
  return 0;
}
- (void)removeAllObjects {
}
- (void)addObject:(id)object {
  if (std::exchange(_isFull, true))
    [NSException raise:NSRangeException format:@"no room for %@", object];
}
@end

namespace wrt::test {

id newBridge(Class type) {
  // Whose the class is depends on the platform: on Linux this program's, in Wine a DLL's.
  return [type bridgeTransfer:WRTActivateInstance(u"TestClass")];
}

NSError *staleError() { return [NSError errorWithDomain:@"stale" code:1 userInfo:nil]; }

std::vector<std::string> takeCrossings() {
  std::vector<std::string> taken = crossings();
  clearCrossings();
  return taken;
}

std::string joined(NSArray *array) { return [[array componentsJoinedByString:@" "] UTF8String]; }

} // namespace wrt::test
