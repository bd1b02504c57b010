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
  Frame(id receiver, Accessor accessor) : interface_(accessor(receiver, &error_)) {}
  Frame(const Frame &) = delete;
  Frame &operator=(const Frame &) = delete;

  /// Whether there is an interface to call.
  bool isOpen() const { return error_ == nil; }
  void *interface() const { return interface_; }

  CleanupList &cleanups() { return cleanups_; }

  /// How many elements the member's capacity argument asks for.
  uint32_t capacity() const { return capacity_; }
  void setCapacity(uint32_t capacity) { capacity_ = capacity; }

  /// An argument's conversion failed with `error` (borrowed): there will be no interface call.
  bool refuse(NSError *error) {
    error_ = error;
    return false;
  }

  /// Takes the interface function's status; whether it was not negative.
  bool accept(HRESULT status) {
    if (status >= 0)
      return true;
    fail(status);
    return false;
  }

  /// Runs the clean-ups, releases the interface and tells the caller the outcome.
  void close(NSError **error) {
    cleanups_.run();
    WRTIUnknownRelease(interface_);
    if (error)
      *error = error_;
  }

private:
  void fail(HRESULT status);

  NSError *error_ = nil;
  void *interface_;
  CleanupList cleanups_;
  uint32_t capacity_ = 0;
};

} // namespace wrt

#endif
