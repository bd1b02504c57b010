#ifndef WRT_MARSHAL_FRAME_H
#define WRT_MARSHAL_FRAME_H

#include <WRTBridge.h>
#include <WRTObjcBridge/WRTTypes.h>

#import <Foundation/Foundation.h>

#include "marshal/CleanupList.h"

namespace wrt {

/// Obtains the interface that declares a member: sends an interface accessor to `object` and
/// returns the pointer (+1); a failure is in `*error`. For class members the object is the class.
using Accessor = void *(*)(id object, NSError **error);

/// One call of a member: the interface it holds for the call, its clean-ups and its outcome.
class Frame {
public:
  /// Asks `receiver` for the interface. Its failure is swallowed: the member then returns at once.
  Frame(id receiver, Accessor accessor) : interface_(accessor(receiver, &error_)) {
    // What comes along with an error is not ours.
    if (error_)
      interface_ = nullptr;
  }
  Frame(const Frame &) = delete;
  Frame &operator=(const Frame &) = delete;
  /// Runs the clean-ups, releases the interface and tells the outcome. An exception of the
  /// application's that passes through the call finds nothing left behind, and tells nothing.
  ~Frame() noexcept(false) {
    if (!interface_)
      return;
    cleanups_.run();
    WRTIUnknownRelease(interface_);
    if (place_)
      *place_ = error_;
  }

  /// Whether there is an interface to call.
  bool isOpen() const { return interface_ != nullptr; }
  void *interface() const { return interface_; }

  CleanupList &cleanups() { return cleanups_; }

  /// How many elements the member's capacity argument asks for.
  uint32_t capacity() const { return capacity_; }
  void setCapacity(uint32_t capacity) { capacity_ = capacity; }

  /// An argument's conversion failed with `status`, a failure: there will be no interface call.
  /// False, for conversions to return.
  bool refuse(HRESULT status);

  /// Asks the argument `object` for the interface that crosses for it, which is +1. When there is
  /// none, refuses with the failure, or with `E_NOINTERFACE` where none is told; false then.
  bool ask(id object, Accessor accessor, void **interface);

  /// Takes the interface function's status; whether it was not negative.
  bool accept(HRESULT status) { return status >= 0 || refuse(status); }

  /// Where the outcome is to be told at the end, nil for success; null is allowed.
  void tell(NSError **error) { place_ = error; }

private:
  NSError *error_ = nil;
  NSError **place_ = nullptr;
  void *interface_;
  CleanupList cleanups_;
  uint32_t capacity_ = 0;
};

} // namespace wrt

#endif
