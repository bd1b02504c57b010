#include "marshal/Object.h"

#include <WRTObjcBridge/WRTUnknownBridge.h>

namespace wrt {

namespace {

Class classOf(ClassReference type) { return (Class)type; }

} // namespace

id bridgeTransfer(ClassReference type, void *object) {
  return [classOf(type) bridgeTransfer:object];
}

id bridge(ClassReference type, void *object) { return [classOf(type) bridge:object]; }

bool Object::Crossing::enter(Frame &frame, Accessor accessor) {
  if (!argument_.get())
    return true;
  if (!frame.ask(argument_.get(), accessor, &interface_))
    return false;
  frame.cleanups().addRelease(interface_);
  return true;
}

} // namespace wrt
