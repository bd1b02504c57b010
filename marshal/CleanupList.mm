#include "marshal/CleanupList.h"

#include <ClassReceiver.h>
#include <WRTBridge.h>

namespace wrt {

void CleanupList::add(void (^cleanup)(void)) {
  if (!blocks_.get())
    blocks_.fill([[WRT_CLASS(NSMutableArray) alloc] init]);
  // The list only retains what it is given, which leaves a block on the stack where it is.
  const auto copy = Retained<>::adopt(objc_retainBlock(cleanup));
  [blocks_.get() addObject:copy.get()];
}

void CleanupList::addRelease(void *object) {
  add(^{
    if (object)
      WRTIUnknownRelease(object);
  });
}

void CleanupList::addRelease(HSTRING string) {
  add(^{
    WRTHSTRINGRelease(string);
  });
}

void CleanupList::addFree(void *block) {
  add(^{
    WRTTaskMemFree(block);
  });
}

void CleanupList::addReleaseOfObject(void **cells, uint32_t index) {
  add(^{
    if (cells[index])
      WRTIUnknownRelease(cells[index]);
  });
}

void CleanupList::addReleaseOfString(void **cells, uint32_t index) {
  add(^{
    WRTHSTRINGRelease(static_cast<HSTRING>(cells[index]));
  });
}

void CleanupList::runBlocks(NSMutableArray *blocks) {
  Retained<NSEnumerator *> enumerator([blocks reverseObjectEnumerator]);
  for (void (^cleanup)(void) in enumerator.get())
    cleanup();
}

} // namespace wrt
