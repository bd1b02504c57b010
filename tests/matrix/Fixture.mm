#include "tests/matrix/Fixture.h"

#include <WRTBridge.h>

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
