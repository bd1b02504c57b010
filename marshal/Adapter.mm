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
  if (interface && !error)
    return interface;
  log::write(log::kSuspicious, memberContext, site.function, __LINE__, site.message);
  return nullptr;
}

#if defined(__EXCEPTIONS)
void logRaised(const char *adapter, id exception) {
  log::write(log::kFailure, memberContext, adapter, __LINE__, @"A block raised %@", exception);
}
#endif

} // namespace wrt
