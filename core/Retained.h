#ifndef WRT_CORE_RETAINED_H
#define WRT_CORE_RETAINED_H

#include <ObjCRuntime.h>

namespace wrt {

/// A reference to an Objective-C object or block, dropped at the end of the scope, which an
/// exception from there may leave.
template <class Object = id>
class Retained {
public:
  Retained() = default;
  /// Adds a reference to a borrowed object; nil is allowed.
  explicit Retained(Object object) : object_(object) { objc_retain(static_cast<id>(object)); }
  /// Takes over a reference (+1) that the caller owns.
  static Retained adopt(Object object) {
    Retained result;
    result.object_ = object;
    return result;
  }
  Retained(Retained &&other) noexcept : object_(other.object_) { other.object_ = nullptr; }
  Retained &operator=(const Retained &) = delete;
  ~Retained() noexcept(false) {
    if (object_)
      objc_release(static_cast<id>(object_));
  }

  /// Borrowed from this reference.
  Object get() const { return object_; }

  /// Takes over `object` (+1) where nothing is held yet.
  void fill(Object object) { object_ = object; }

  /// Takes over `object` (+1) and then drops what was held before.
  void replace(Object object) {
    Object old = object_;
    object_ = object;
    objc_release(static_cast<id>(old));
  }

  /// Hands the reference to the current autorelease pool and keeps none.
  Object autorelease() {
    Object object = object_;
    object_ = nullptr;
    objc_autorelease(static_cast<id>(object));
    return object;
  }

private:
  Object object_ = nullptr;
};

} // namespace wrt

#endif
