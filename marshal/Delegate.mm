#include "marshal/Delegate.h"

namespace wrt {

bool Delegate::Crossing::enter(Frame &frame, DelegateMaker maker) {
  Retained<> adapter;
  delegate_ = maker(handler_.get(), adapter);
  frame.cleanups().addRelease(delegate_);
  return true;
}

} // namespace wrt
