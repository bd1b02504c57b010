#ifndef WRT_MARSHAL_ARRAY_H
#define WRT_MARSHAL_ARRAY_H

#include "marshal/Object.h"
#include "marshal/String.h"

#include <ClassReceiver.h>
#include <algorithm>

namespace wrt {

/// Elements on the WinRT side: a count, which WinRT compares as a signed number, and a block of
/// handles or interface pointers.
struct Cells {
  int32_t count = 0;
  void **block = nullptr;

  /// Gives the block room for `room` null cells in task memory, which a clean-up frees. False when
  /// that is more than any array has (`E_INVALIDARG`) or cannot be had (`E_OUTOFMEMORY`), which
  /// ends the call.
  bool allocate(Frame &frame, NSUInteger room);
};

/// Elements that are strings.
struct StringElements {
  using InFact = NoFact;
  using OutFact = NoFact;

  /// Converts element `index` into its cell and registers its clean-up.
  static bool enter(Frame &frame, id element, void **cells, uint32_t index, NoFact);
  /// Adds the cells' strings to `array`, an empty one for what cannot be converted; whether each
  /// handle is released after that is up to `releases`.
  static void leave(NSMutableArray *array, const Cells &cells, NoFact, bool releases);
};

/// Elements that are interfaces or runtime classes.
struct ObjectElements {
  using InFact = Accessor;
  using OutFact = ClassReference;

  /// As `StringElements::enter`. Nil, which an array of the caller's own making may answer, and
  /// `NSNull` stand for null.
  static bool enter(Frame &frame, id element, void **cells, uint32_t index, Accessor accessor);
  /// Adds a bridge for each cell to `array`; the bridge takes the cell's reference over. `NSNull`
  /// stands in the place of a null, so that indices stay.
  static void leave(NSMutableArray *array, const Cells &cells, ClassReference type, bool);
};

/// A new mutable array.
inline Retained<NSMutableArray *> newArray() {
  return Retained<NSMutableArray *>::adopt([[WRT_CLASS(NSMutableArray) alloc] init]);
}

/// A new array, autoreleased, with the elements of `cells`.
template <class Elements>
NSMutableArray *arrayOf(const Cells &cells, typename Elements::OutFact fact, bool releases) {
  Retained<NSMutableArray *> array = newArray();
  Elements::leave(array.get(), cells, fact, releases);
  return array.autorelease();
}

/// An array of strings or objects, `NSArray` or `NSMutableArray` here, a count and a block there.
template <class Elements>
struct Array {
  using Type = NSArray *;
  using Fact = typename Elements::InFact;

  /// The block and its elements are the call's own: clean-ups release the elements, last first, and
  /// then the block. The array is asked for its count anew before each element, and an element that
  /// cannot be converted ends the call.
  class Crossing {
  public:
    explicit Crossing(NSArray *argument) : argument_(argument) {}

    bool enter(Frame &frame, Fact fact) {
      NSArray *array = argument_.get();
      const NSUInteger passed = [array count];
      // An array that changes meanwhile must not get beyond the block, nor WinRT.
      const NSUInteger room = std::max(passed, [array count]);
      cells_.count = static_cast<int32_t>(passed);
      if (!cells_.allocate(frame, room))
        return false;
      for (uint32_t index = 0; index < [array count] && index < room; ++index) {
        if (!Elements::enter(frame, [array objectAtIndexedSubscript:index], cells_.block, index,
                             fact))
          return false;
      }
      return true;
    }
    auto words() { return Words{cells_.count, cells_.block}; }
    void leave(Fact) {}

  private:
    Retained<NSArray *> argument_;
    Cells cells_;
  };
};

/// The caller's mutable array, emptied and refilled on success. WinRT allocates the block, which
/// nobody frees.
template <class Elements>
struct Out<Array<Elements>> {
  using Type = NSMutableArray *;
  using Fact = typename Elements::OutFact;

  class Crossing {
  public:
    explicit Crossing(NSMutableArray *argument) : argument_(argument) {}

    bool enter(PlainFrame &, Fact) { return true; }
    auto words() { return Words{&cells_.count, &cells_.block}; }
    void leave(Fact fact) {
      [argument_.get() removeAllObjects];
      Elements::leave(argument_.get(), cells_, fact, true);
    }

  private:
    Retained<NSMutableArray *> argument_;
    Cells cells_;
  };
};

/// A new array as the result. WinRT allocates the block, which nobody frees.
template <class Elements>
struct ReturnedArray {
  using Type = NSMutableArray *;
  using Fact = typename Elements::OutFact;

  struct Returning {
    Cells cells;

    bool enter(PlainFrame &) { return true; }
    auto words() { return Words{&cells.count, &cells.block}; }
    NSMutableArray *leave(Fact fact) { return arrayOf<Elements>(cells, fact, true); }
  };
};

} // namespace wrt

#endif
