#ifndef WRT_MARSHAL_FILLED_ARRAY_H
#define WRT_MARSHAL_FILLED_ARRAY_H

#include "marshal/Array.h"

#include <algorithm>

namespace wrt {

/// How many elements the caller asks for; stands before the array that WinRT fills, which takes it
/// from the frame.
template <class T>
struct Capacity {
  using Type = T;
  using Fact = NoFact;
  static constexpr bool kTellsCapacity = true;

  struct Crossing {
    T value;

    bool enter(Frame &frame, NoFact) {
      frame.setCapacity(static_cast<uint32_t>(value));
      return true;
    }
    auto words() { return Words{value}; }
    void leave(NoFact) {}
  };
};

/// Cells of the call's own that WinRT fills. A delivered count beyond the capacity is cut to it.
struct FilledCells {
  Cells cells;
  uint32_t capacity = 0;

  bool allocate(Frame &frame) {
    capacity = frame.capacity();
    return cells.allocate(frame, capacity);
  }
  Cells delivered() const {
    return {static_cast<int32_t>(std::min<int64_t>(cells.count, capacity)), cells.block};
  }
};

/// The caller's mutable array, emptied and refilled on success with what WinRT filled in.
template <class Elements>
struct Fill<Array<Elements>> {
  using Type = NSMutableArray *;
  using Fact = typename Elements::OutFact;
  static constexpr bool kNeedsCapacity = true;

  class Crossing {
  public:
    explicit Crossing(NSMutableArray *argument) : argument_(argument) {}

    bool enter(Frame &frame, Fact) { return filled_.allocate(frame); }
    auto words() { return Words{&filled_.cells.count, filled_.cells.block}; }
    void leave(Fact fact) {
      [argument_.get() removeAllObjects];
      Elements::leave(argument_.get(), filled_.delivered(), fact, true);
    }

  private:
    Retained<NSMutableArray *> argument_;
    FilledCells filled_;
  };
};

/// A new array as the result, with what WinRT filled in. Alone among the string arrays it does not
/// release the handles, unless `kReleasesStringResults`.
template <class Elements>
struct ReturnedFill {
  using Type = NSMutableArray *;
  using Fact = typename Elements::OutFact;
  static constexpr bool kNeedsCapacity = true;

  struct Returning {
    FilledCells filled;

    bool enter(Frame &frame) { return filled.allocate(frame); }
    auto words() { return Words{&filled.cells.count, filled.cells.block}; }
    NSMutableArray *leave(Fact fact) {
      return arrayOf<Elements>(filled.delivered(), fact, kReleasesStringResults);
    }
  };
};

/// The bulk read of a collection: as `ReturnedFill`, but WinRT takes the block before the place for
/// the count.
template <class Elements>
struct BulkRead {
  using Type = NSArray *;
  using Fact = typename Elements::OutFact;
  static constexpr bool kNeedsCapacity = true;

  struct Returning : ReturnedFill<Elements>::Returning {
    auto words() { return Words{this->filled.cells.block, &this->filled.cells.count}; }
  };
};

} // namespace wrt

#endif
