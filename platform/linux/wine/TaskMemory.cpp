#include "platform/linux/ledger/WRTLedger.h"
#include "platform/linux/wine/WindowsFunctions.h"

using wrt::wine::windows;

WRT_DLLEXPORT void *WRTTaskMemAlloc(size_t size) {
  void *block = windows().CoTaskMemAlloc(size);
  if (block != nullptr)
    WRTLedgerAdd(kWRTLedgerTaskBlocks, 1);
  return block;
}

WRT_DLLEXPORT void WRTTaskMemFree(void *block) {
  if (block == nullptr)
    return;
  windows().CoTaskMemFree(block);
  WRTLedgerAdd(kWRTLedgerTaskBlocks, -1);
}
