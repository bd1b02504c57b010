#ifndef WRT_MARSHAL_FRAME_H
#define WRT_MARSHAL_FRAME_H

#include <WRTBridge.h>
#include <WRTObjcBridge/WRTConversions.h>
#include <WRTObjcBridge/WRTTypes.h>

#import <Foundation/Foundation.h>

#include "marshal/CleanupList.h"

namespace wrt {

/// Obtains the interface that declares a member: sends an interface accessor to `object` and
/// returns the pointer (+1); a failure is in `*error`. For class members the object is the class.
using Accessor = void *(*)(id object, NSError **error);

/// One call of a member whose arguments leave nothing to be undone: the interface it holds for the
/// call, and its outcome. Small enough to be kept in registers; what would hand its address to a
/// function of its own belongs into `Frame`.
class PlainFrame {
public:
  /// Asks `receiver` for the interface. Its failure is swallowed: the member then returns at once.
  PlainFrame(id receiver, Accessor accessor) {
    NSError *error = nil;
    void *interface = accessor(receiver, &error);
    // What comes along with an error is not ours.
    if (!error) [[likely]]
      interface_ = interface;
  }
  PlainFrame(const PlainFrame &) = delete;
  PlainFrame &operator=(const PlainFrame &) = delete;
  /// Releases the interface and tells the outcome. An exception of the application's that passes
  /// through the call finds nothing left behind, and tells nothing.
  [[gnu::always_inline]] ~PlainFrame() noexcept(false) {
    if (interface_)
      finish();
  }

  /// Whether there is an interface to call.
  bool isOpen() const { return interface_ != nullptr; }
  void *interface() const { return interface_; }

  /// An argument's conversion failed with `status`, a failure: there will be no interface call.
  /// False, for conversions to return.
  bool refuse(HRESULT status) {
    error_ = WRTCreateNSErrorFromHRESULT(status);
    return false;
  }

  /// Takes the interface function's status; whether it was not negative.
  bool accept(HRESULT status) {
    if (status >= 0) [[likely]]
      return true;
    return refuse(status);
  }

  /// Where the outcome is to be told at the end, nil for success; null is allowed.
  void tell(NSError **error) { place_ = error; }

protected:
  /// The end of a call, once.
  void finish() {
    WRTIUnknownRelease(interface_);
    interface_ = nullptr;
    if (place_)
      *place_ = error_;
  }

  NSError *error_ = nil;

private:
  NSError **place_ = nullptr;
  void *interface_ = nullptr;
};

/// One call of a member: its clean-ups as well.
class Frame : public PlainFrame {
public:
  using PlainFrame::PlainFrame;
  /// Runs the clean-ups before the rest; their list goes last.
  ~Frame() noexcept(false) {
    if (!isOpen())
      return;
    cleanups_.run();
    finish();
  }

  CleanupList &cleanups() { return cleanups_; }

  /// How many elements the member's capacity argument asks for.
  uint32_t capacity() const { return capacity_; }
  void setCapacity(uint32_t capacity) { capacity_ = capacity; }

  /// Asks the argument `object` for the interface that crosses for it, which is +1. When there is
  /// none, refuses with the failure, or with `E_NOINTERFACE` where none is told; false then.
  bool ask(id object, Accessor accessor, void **interface);

private:
  CleanupList cleanups_;
  uint32_t capacity_ = 0;
};

} // namespace wrt

#endif
