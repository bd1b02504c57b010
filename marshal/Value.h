#ifndef WRT_MARSHAL_VALUE_H
#define WRT_MARSHAL_VALUE_H

#include "marshal/Member.h"

namespace wrt {

/// No result.
struct Void {
  using Type = void;
  using Fact = NoFact;

  struct Returning {
    bool enter(PlainFrame &) { return true; }
    auto words() { return Words{}; }
    void leave(NoFact) {}
  };
};

/// What crosses as it is: numbers, enumerations, structures, GUIDs, tokens, and the pointers of
/// out-values and of C arrays, which are the caller's own.
template <class T>
struct Value {
  using Type = T;
  using Fact = NoFact;

  struct Crossing {
    T value;

    bool enter(PlainFrame &, NoFact) { return true; }
    auto words() { return Words{value}; }
    void leave(NoFact) {}
  };

  struct Returning {
    T value{};

    bool enter(PlainFrame &) { return true; }
    auto words() { return Words{&value}; }
    T leave(NoFact) { return value; }
  };
};

/// A C array or an out-value that the caller owns.
using Pointer = Value<void *>;

/// A WinRT boolean: one byte, whose every value but 0 means true.
struct Boolean {
  using Type = bool;
  using Fact = NoFact;

  struct Crossing {
    bool value;

    bool enter(PlainFrame &, NoFact) { return true; }
    auto words() { return Words{value}; }
    void leave(NoFact) {}
  };

  struct Returning {
    unsigned char value = 0;

    bool enter(PlainFrame &) { return true; }
    auto words() { return Words{&value}; }
    bool leave(NoFact) { return value != 0; }
  };
};

} // namespace wrt

#endif
