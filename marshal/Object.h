#ifndef WRT_MARSHAL_OBJECT_H
#define WRT_MARSHAL_OBJECT_H

#include "marshal/Member.h"
#include "marshal/Out.h"

namespace wrt {

/// The class structure that the compiler makes for an Objective-C class, by its own symbol.
struct ClassStructure;

/// A bridge class that can stand in constants and costs no message to name.
using ClassReference = const ClassStructure *;

/// A bridge of `type`, autoreleased, that takes over a reference to `object`.
id bridgeTransfer(ClassReference type, void *object);
/// A bridge of `type`, autoreleased, with a reference of its own to `object` (borrowed).
id bridge(ClassReference type, void *object);

/// An interface or runtime-class argument: any object that answers the declared interface's
/// accessor. Nil crosses as null. The fact is the accessor.
struct Object {
  using Type = id;
  using Fact = Accessor;

  class Crossing {
  public:
    explicit Crossing(id argument) : argument_(argument) {}

    bool enter(Frame &frame, Accessor accessor);
    auto words() { return Words{interface_}; }
    void leave(Accessor) {}

  private:
    Retained<> argument_;
    void *interface_ = nullptr;
  };
};

/// Where an object result arrives (+1).
struct ReturnedObject {
  void *object = nullptr;

  bool enter(PlainFrame &) { return true; }
  auto words() { return Words{&object}; }
};

/// A result of an interface type: null is nil. The fact is the interface's bridge class.
struct Interface {
  using Type = id;
  using Fact = ClassReference;

  struct Returning : ReturnedObject {
    id leave(ClassReference type) { return object ? bridgeTransfer(type, object) : nil; }
  };
};

/// A result of a runtime-class type. Unlike an interface it is not tested for null, so that
/// `bridgeTransfer:` reports a null. The fact is the class's bridge class.
struct RuntimeClass {
  using Type = id;
  using Fact = ClassReference;

  struct Returning : ReturnedObject {
    id leave(ClassReference type) { return bridgeTransfer(type, object); }
  };
};

/// An interface or runtime class through an out-parameter: neither is tested for null.
template <>
struct Out<Object> {
  using Type = id *;
  using Fact = ClassReference;

  struct Crossing {
    id *place;
    RuntimeClass::Returning returning{};

    bool enter(PlainFrame &, ClassReference) { return true; }
    auto words() { return returning.words(); }
    void leave(ClassReference type) { *place = returning.leave(type); }
  };
};

} // namespace wrt

#endif
