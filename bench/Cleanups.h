#ifndef WRT_BENCH_CLEANUPS_H
#define WRT_BENCH_CLEANUPS_H

#include <ClassReceiver.h>
#include <ObjCRuntime.h>

#import <Foundation/Foundation.h>

namespace wrt::bench {

/// A clean-up list (+1).
inline NSMutableArray *newCleanups() { return [[WRT_CLASS(NSMutableArray) alloc] init]; }

/// Registers a clean-up in a list that the caller owns; the block is copied to the heap.
inline void addCleanup(NSMutableArray *cleanups, void (^cleanup)(void)) {
  id copy = objc_retainBlock(cleanup);
  [cleanups addObject:copy];
  objc_release(copy);
}

/// Runs the clean-ups, last registered first.
inline void runCleanups(NSMutableArray *cleanups) {
  NSEnumerator *enumerator = objc_retain([cleanups reverseObjectEnumerator]);
  for (void (^cleanup)(void) in enumerator)
    cleanup();
  objc_release(enumerator);
}

} // namespace wrt::bench

#endif
