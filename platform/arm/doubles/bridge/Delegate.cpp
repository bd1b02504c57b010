#include "platform/arm/doubles/bridge/Delegate.h"

#include "platform/arm/doubles/bridge/Bridge.h"

#include <stdlib.h>

extern "C" {
void *_Block_copy(const void *block);
void _Block_release(const void *block);
}

namespace {

int live = 0;

HRESULT queryInterface(Delegate *self, const GUID *, void **result) {
  ++self->references;
  *result = self;
  return 0;
}

uint32_t addReference(Delegate *self) { return ++self->references; }

uint32_t release(Delegate *self) {
  const uint32_t left = --self->references;
  if (left == 0) {
    _Block_release(self->block);
    --live;
    free(self);
  }
  return left;
}

} // namespace

void *makeDelegate(void *block, void *invoke) {
  auto *delegate = static_cast<Delegate *>(malloc(sizeof(Delegate)));
  delegate->functions[0] = reinterpret_cast<void *>(queryInterface);
  delegate->functions[1] = reinterpret_cast<void *>(addReference);
  delegate->functions[2] = reinterpret_cast<void *>(release);
  delegate->functions[3] = invoke;
  delegate->table = delegate->functions;
  delegate->references = 1;
  delegate->block = _Block_copy(block);
  ++live;
  return delegate;
}

extern "C" int testLiveDelegates(void) { return live; }
