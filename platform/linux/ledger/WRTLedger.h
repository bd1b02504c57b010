/// The ledger: how many things of each kind the embedded platform has handed out and not got back.
/// Always on and exact; tests compare it before and after.
#ifndef WRT_LEDGER_H
#define WRT_LEDGER_H

#include <WRTObjcBridge/WRTTypes.h>
#include <stddef.h>

WRT_EXTERN_C_BEGIN

/// What is counted.
typedef enum WRTLedgerKind {
  /// Objects of components, factories and wrapping buffers included.
  kWRTLedgerObjects,
  /// Delegates made of blocks.
  kWRTLedgerDelegates,
  /// Strings; string references, which own nothing, are not counted.
  kWRTLedgerStrings,
  /// Handles to those strings: a string that was duplicated once has two.
  kWRTLedgerStringHandles,
  /// Blocks of task memory.
  kWRTLedgerTaskBlocks,
  /// Objective-C blocks on the heap.
  kWRTLedgerBlocks,
  /// `__block` variables on the heap.
  kWRTLedgerBlockVariables,
  kWRTLedgerKindCount
} WRTLedgerKind;

/// The number of living things of each kind at one moment, or a difference of two such numbers.
typedef struct WRTLedgerCounts {
  int64_t live[kWRTLedgerKindCount];
} WRTLedgerCounts;

/// Counts `amount` (negative for things given back) of a kind. Any thread.
WRT_DLLEXPORT void WRTLedgerAdd(WRTLedgerKind kind, int64_t amount);
/// The counts now. Exact when no other thread makes or gives back anything meanwhile.
WRT_DLLEXPORT WRTLedgerCounts WRTLedgerRead(void);
/// `after` minus `before`.
WRT_DLLEXPORT WRTLedgerCounts WRTLedgerDifference(WRTLedgerCounts before, WRTLedgerCounts after);
/// Whether every count is 0.
WRT_DLLEXPORT bool WRTLedgerIsZero(WRTLedgerCounts counts);
/// The name of a kind, as in `task blocks`; static storage.
WRT_DLLEXPORT const char *WRTLedgerKindName(WRTLedgerKind kind);
/// Writes the counts that are not 0 into `text` (`size` bytes), as in "strings +2, delegates -1" or
/// "nothing", cut where it does not fit and always terminated. Gives the whole length in bytes
/// without the terminator; with a `size` of 0 `text` may be null.
WRT_DLLEXPORT size_t WRTLedgerDescribe(WRTLedgerCounts counts, char *text, size_t size);

WRT_EXTERN_C_END

#endif
