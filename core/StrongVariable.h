#ifndef WRT_CORE_STRONG_VARIABLE_H
#define WRT_CORE_STRONG_VARIABLE_H

#include <ObjCRuntime.h>

namespace wrt {

/// An instance variable that owns its object. It starts as nil because instances are allocated
/// zeroed: the constructor is trivial, so that the class gets `.cxx_destruct` but no
/// `.cxx_construct`.
template <class Object>
class StrongVariable {
public:
  StrongVariable() = default;
  StrongVariable(const StrongVariable &) = delete;
  StrongVariable &operator=(const StrongVariable &) = delete;
  ~StrongVariable() { objc_release(static_cast<id>(object_)); }

  Object get() const { return object_; }

  /// Takes `object` (+1) over and then drops what was held before.
  void replace(Object object) {
    Object old = object_;
    object_ = object;
    objc_release(static_cast<id>(old));
  }

private:
  Object object_;
};

} // namespace wrt

#endif
