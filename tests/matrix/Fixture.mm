#include "tests/matrix/Fixture.h"

#include <WRTBridge.h>

#include <algorithm>
#include <utility>

@implementation OddArray
+ (instancetype)arrayWithCount:(int)count {
  OddArray *array = [[[self alloc] init] autorelease];
  array->_count = static_cast<NSUInteger>(count);
  return array;
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

@implementation ProbeArray
- (NSUInteger)count {
  const auto before = static_cast<size_t>(std::ranges::count(asked, 'n'));
  asked += 'n';
  return counts[std::min(before, counts.size() - 1)];
}
- (id)objectAtIndexedSubscript:(NSUInteger)index {
  asked += static_cast<char>('0' + index);
  return element;
}
- (id)objectAtIndex:(NSUInteger)index {
  asked += '?';
  return [self objectAtIndexedSubscript:index];
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

namespace {

void reset() {
  resetScript();
  takeCrossings();
  clearLog();
}

} // namespace

MemberCell::MemberCell(const char *name, void (*body)())
    : Cell(name, [body] {
        reset();
        body();
        reset();
      }) {}

MemberCell::MemberCell(const char *name, void (*body)(Bridge bridge))
    : Cell(name, [body] {
        for (Class type in @[ [WRTTestInterfaceBridge class], [WRTTestClassBridge class] ]) {
          SCOPED_TRACE([NSStringFromClass(type) UTF8String]);
          reset();
          body(newBridge(type));
        }
        reset();
      }) {}

id newBridge(Class type) {
  // Whose the class is depends on the platform: on Linux this program's, in Wine a DLL's.
  return [type bridgeTransfer:WRTActivateInstance(u"TestClass")];
}

void handIn(Bridge bridge, HRESULT (^block)(int, NSString *, Bridge, WRTTestClassBridge *),
            NSError **error) {
  [bridge inDelegateWithArg:block error:error];
}
void handIn(Bridge bridge, HRESULT (^block)(NSString **result)) {
  [bridge inDelegateReturnStringWithArg:block error:nullptr];
}
void handIn(Bridge bridge, HRESULT (^block)(Bridge *result)) {
  [bridge inDelegateReturnInterfaceWithArg:block error:nullptr];
}

std::string joined(NSArray *array) { return [[array componentsJoinedByString:@" "] UTF8String]; }

} // namespace wrt::test
