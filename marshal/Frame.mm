#include "marshal/Frame.h"

#include <WRTStatus.h>

namespace wrt {

bool Frame::ask(id object, Accessor accessor, void **interface) {
  NSError *error = nil;
  *interface = accessor(object, &error);
  if (!error)
    return *interface || refuse(status::kNoInterface);
  error_ = error;
  return false;
}

} // namespace wrt
