#ifndef WRT_ARM_DELEGATE_DOUBLE_H
#define WRT_ARM_DELEGATE_DOUBLE_H

#include <WRTUnknown.h>

/// A new delegate (+1) that keeps a reference of its own to `block` (borrowed) and whose Invoke is
/// `invoke`; behind its interface table there is the block, for `invoke` to find.
void *makeDelegate(void *block, void *invoke);

struct Delegate {
  const void *table;
  void *functions[4];
  uint32_t references;
  void *block;
};

#endif
