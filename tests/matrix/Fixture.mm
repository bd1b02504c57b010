#include "tests/matrix/Fixture.h"

namespace wrt::test {

id newBridge(Class type) {
  return [type bridgeTransfer:component::make<TestObject>().detach()->identity()];
}

NSError *staleError() { return [NSError errorWithDomain:@"stale" code:1 userInfo:nil]; }

std::vector<std::string> takeCrossings() {
  std::vector<std::string> taken = crossings();
  clearCrossings();
  return taken;
}

std::string joined(NSArray *array) { return [[array componentsJoinedByString:@" "] UTF8String]; }

} // namespace wrt::test
