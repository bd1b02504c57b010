#ifndef WRT_MARSHAL_CLEANUP_LIST_H
#define WRT_MARSHAL_CLEANUP_LIST_H

#include <WRTObjcBridge/WRTTypes.h>

#import <Foundation/Foundation.h>

#include "core/Retained.h"

namespace wrt {

/// What a call has to undo once its interface call is over: blocks that run last registered first.
/// Costs nothing as long as nothing is registered.
class CleanupList {
public:
  /// Registers a clean-up; the block is copied to the heap.
  void add(void (^cleanup)(void));

  /// `WRTIUnknownRelease`, `WRTHSTRINGRelease` and `WRTTaskMemFree` are the clean-ups there are; of
  /// a null they do nothing.
  void addRelease(void *object);
  void addRelease(HSTRING string);
  void addFree(void *block);
  /// Release what stands in `cells[index]` when the clean-up runs.
  void addReleaseOfObject(void **cells, uint32_t index);
  void addReleaseOfString(void **cells, uint32_t index);

  /// Runs every clean-up once, in reverse order of registration.
  void run() {
    if (blocks_.get())
      runBlocks(blocks_.get());
  }

private:
  static void runBlocks(NSMutableArray *blocks);

  Retained<NSMutableArray *> blocks_;
};

} // namespace wrt

#endif
