#include "marshal/Array.h"

#include <WRTBridge.h>

namespace wrt {

bool StringElements::enter(Frame &frame, id element, void **cells, uint32_t index, NoFact) {
  cells[index] = WRTCreateHSTRINGFromNSString(static_cast<NSString *>(element));
  frame.cleanups().addReleaseOfString(cells, index);
  return true;
}

void StringElements::leave(NSMutableArray *array, const Cells &cells, NoFact, bool releases) {
  for (int32_t index = 0; index < cells.count; ++index) {
    HSTRING handle = static_cast<HSTRING>(cells.block[index]);
    [array addObject:WRTCreateNSStringFromHSTRING(handle)];
    if (releases)
      WRTHSTRINGRelease(handle);
  }
}

bool ObjectElements::enter(Frame &frame, id element, void **cells, uint32_t index,
                           Accessor accessor) {
  NSError *error = nil;
  cells[index] = accessor(element, &error);
  if (error)
    return frame.refuse(error);
  frame.cleanups().addReleaseOfObject(cells, index);
  return true;
}

void ObjectElements::leave(NSMutableArray *array, const Cells &cells, ClassReference type, bool) {
  for (int32_t index = 0; index < cells.count; ++index)
    [array addObject:bridgeTransfer(type, cells.block[index])];
}

void **allocateCells(Frame &frame, NSUInteger count) {
  // A size that does not fit becomes one that cannot be had.
  const size_t size = count <= SIZE_MAX / sizeof(void *) ? count * sizeof(void *) : SIZE_MAX;
  void *block = WRTTaskMemAlloc(size);
  frame.cleanups().addFree(block);
  return static_cast<void **>(block);
}

} // namespace wrt
