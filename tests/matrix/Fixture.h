#ifndef WRT_TESTS_MATRIX_FIXTURE_H
#define WRT_TESTS_MATRIX_FIXTURE_H

#include "tests/component/TestObject.h"
#include "tests/support/Cell.h"
#include "tests/support/LogRecorder.h"
#include "tests/support/PlatformTrace.h"
#include "tests/support/ProbeObject.h"

#import <WRTObjcBridge/test.h>

/// An array that says what it is told of its count, answers nil for the first element, and for
/// others raises.
@interface OddArray : NSArray {
  NSUInteger _count;
}
- (instancetype)initWithCount:(int)count;
@end

/// An array that takes one object and then raises.
@interface FullArray : NSMutableArray {
  bool _isFull;
}
@end

namespace wrt::test {

inline constexpr HRESULT kFailure = static_cast<HRESULT>(0x80070057);     // E_INVALIDARG
inline constexpr HRESULT kNoInterface = static_cast<HRESULT>(0x80004002); // E_NOINTERFACE

/// A bridge of `type`, autoreleased, around a new object of the test component.
id newBridge(Class type);

/// An error variable that holds something, as a caller's may from an earlier call.
NSError *staleError();

/// Runs `body` once with a bridge of each of the two classes that carry the test members; the
/// script and the crossings are reset before.
template <class Body>
void forBothClasses(Body body) {
  for (Class type in @[ [WRTTestInterfaceBridge class], [WRTTestClassBridge class] ]) {
    SCOPED_TRACE([NSStringFromClass(type) UTF8String]);
    resetScript();
    clearCrossings();
    body(static_cast<id<WRTTestInterfaceBridge>>(newBridge(type)));
  }
}

/// What has crossed since the last time.
std::vector<std::string> takeCrossings();

using Crossings = std::vector<std::string>;

/// The elements' descriptions, joined by spaces.
std::string joined(NSArray *array);

} // namespace wrt::test

#endif
