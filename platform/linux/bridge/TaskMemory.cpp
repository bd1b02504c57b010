#include "platform/linux/ledger/WRTLedger.h"

#include <WRTBridge.h>
#include <cstdlib>

WRT_DLLEXPORT void *WRTTaskMemAlloc(size_t size) {
  void *block = std::malloc(size != 0 ? size : 1);
  if (block != nullptr)
    WRTLedgerAdd(kWRTLedgerTaskBlocks, 1);
  return block;
}

WRT_DLLEXPORT void WRTTaskMemFree(void *block) {
  if (block == nullptr)
    return;
  std::free(block);
  WRTLedgerAdd(kWRTLedgerTaskBlocks, -1);
}
