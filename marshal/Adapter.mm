#include "marshal/Adapter.h"

#include "core/Log.h"

namespace wrt {

namespace {

/// The log context of member code.
XPLogContext memberContext;

} // namespace

void *delegateResult(id object, Accessor accessor, const AdapterSite &site) {
  NSError *error = nil;
  void *interface = accessor(object, &error);
  if (!error)
    return interface;
  log::write(log::kSuspicious, memberContext, site.function, __LINE__, site.message);
  return nullptr;
}

} // namespace wrt
