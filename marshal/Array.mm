#include "marshal/Array.h"

#include <ObjCRuntime.h>
#include <WRTBridge.h>
#include <WRTStatus.h>

#include <algorithm>
#include <atomic>

namespace wrt {

namespace {

/// No array has more elements: in blocks of that size every count is positive and every size fits.
constexpr NSUInteger kMostCells = 0x0FFFFFFF;

/// The object that stands for null in arrays. Its class is looked up once; the product does not
/// import it.
id null() {
  static std::atomic<void *> instance;
  void *known = instance.load(std::memory_order_relaxed);
  if (!known) {
    known = [objc_getClass("NSNull") null];
    instance.store(known, std::memory_order_relaxed);
  }
  return static_cast<id>(known);
}

/// Walks over cells that WinRT has filled. When an array raises on the way, what is left, from the
/// current cell on, is given up with `release`, unless that is null.
class HandedOut {
public:
  HandedOut(const Cells &cells, void (*release)(void *)) : cells_(cells), release_(release) {}
  HandedOut(const HandedOut &) = delete;
  ~HandedOut() noexcept(false) {
    for (; release_ && !atEnd(); advance())
      release_(cell());
  }

  bool atEnd() const { return index_ >= cells_.count; }
  void *cell() const { return cells_.block[index_]; }
  void advance() { ++index_; }

private:
  const Cells &cells_;
  void (*release_)(void *);
  int32_t index_ = 0;
};

} // namespace

bool Cells::allocate(Frame &frame, NSUInteger room) {
  if (room > kMostCells)
    return frame.refuse(status::kInvalidArgument);
  block = static_cast<void **>(WRTTaskMemAlloc(room * sizeof(void *)));
  if (!block && room > 0)
    return frame.refuse(status::kOutOfMemory);
  frame.cleanups().addFree(block);
  std::fill_n(block, room, nullptr);
  return true;
}

bool StringElements::enter(Frame &frame, id element, void **cells, uint32_t index, NoFact) {
  cells[index] = WRTCreateHSTRINGFromNSString(static_cast<NSString *>(element));
  frame.cleanups().addReleaseOfString(cells, index);
  return true;
}

void StringElements::leave(NSMutableArray *array, const Cells &cells, NoFact, bool releases) {
  const auto release = [](void *cell) { WRTHSTRINGRelease(static_cast<HSTRING>(cell)); };
  for (HandedOut each(cells, releases ? +release : nullptr); !each.atEnd(); each.advance()) {
    NSString *string = WRTCreateNSStringFromHSTRING(static_cast<HSTRING>(each.cell()));
    [array addObject:string ? string : @""];
    if (releases)
      release(each.cell());
  }
}

bool ObjectElements::enter(Frame &frame, id element, void **cells, uint32_t index,
                           Accessor accessor) {
  if (!element || element == null())
    return true;
  if (!frame.ask(element, accessor, &cells[index]))
    return false;
  frame.cleanups().addReleaseOfObject(cells, index);
  return true;
}

void ObjectElements::leave(NSMutableArray *array, const Cells &cells, ClassReference type, bool) {
  for (HandedOut each(cells, WRTIUnknownSafeRelease); !each.atEnd();) {
    id object = bridgeTransfer(type, each.cell());
    each.advance();
    [array addObject:object ? object : null()];
  }
}

} // namespace wrt
