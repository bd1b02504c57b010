#ifndef WRT_TESTS_MATRIX_FIXTURE_H
#define WRT_TESTS_MATRIX_FIXTURE_H

#include "tests/component/TestObject.h"
#include "tests/support/Bridges.h"

#import <WRTObjcBridge/test.h>

/// An array that says what it is told of its count, answers nil for the first element, and for
/// others raises.
@interface OddArray : NSArray {
  NSUInteger _count;
}
+ (instancetype)arrayWithCount:(int)count;
@end

/// An array of one element again and again, which counts one thing each time it is asked for its
/// count, and notes what it is asked: `n` for the count, the index of an element, `?` before it if
/// that was `objectAtIndex:`.
@interface ProbeArray : NSArray {
@public
  std::vector<NSUInteger> counts;
  id element;
  std::string asked;
}
@end

/// An array that takes one object and then raises.
@interface FullArray : NSMutableArray {
  bool _isFull;
}
@end

namespace wrt::test {

using Bridge = id<WRTTestInterfaceBridge>;

/// A cell of the test members. Its script is as new, and what crossed or was logged before is
/// forgotten.
struct MemberCell : Cell {
  MemberCell(const char *name, void (*body)());
  /// Runs `body` once with a bridge of each of the two classes that carry the members.
  MemberCell(const char *name, void (*body)(Bridge bridge));
};

/// A bridge of `type`, autoreleased, around a new object of the test component.
id newBridge(Class type);

/// Hand a block to the component.
void handIn(Bridge bridge, HRESULT (^block)(int, NSString *, Bridge, WRTTestClassBridge *),
            NSError **error = nullptr);
void handIn(Bridge bridge, HRESULT (^block)(NSString **result));
void handIn(Bridge bridge, HRESULT (^block)(Bridge *result));

using Crossings = std::vector<std::string>;

/// The elements' descriptions, joined by spaces.
std::string joined(NSArray *array);

} // namespace wrt::test

#endif
