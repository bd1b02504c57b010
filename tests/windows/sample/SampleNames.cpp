// What the sample library takes from the C bridge library: its class's name and its delegate.
#include "platform/arm/doubles/bridge/Delegate.h"

namespace {

/// A block's beginning, up to its function.
struct Block {
  void *isa;
  int flags;
  int reserved;
  HRESULT (*invoke)(Block *, void *sender, long long value);
};

HRESULT invokeBlock(Delegate *self, void *sender, long long value) {
  auto *block = static_cast<Block *>(self->block);
  return block->invoke(block, sender, value);
}

} // namespace

extern "C" {

WRT_DLLEXPORT extern const char16_t *const WRTSampleClassString;
const char16_t *const WRTSampleClassString = u"Tests.Sample";

WRT_DLLEXPORT void *WRTSampleHandlerFromBlock(void *block) {
  return makeDelegate(block, reinterpret_cast<void *>(invokeBlock));
}
}
