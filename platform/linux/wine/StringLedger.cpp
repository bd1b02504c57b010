#include "platform/linux/wine/StringLedger.h"

#include "platform/linux/ledger/WRTLedger.h"

#include <map>
#include <mutex>

namespace wrt::wine {

namespace {

std::mutex mutex;
/// How many handles each living string has.
std::map<HSTRING, int> handles;

} // namespace

void countHandleMade(HSTRING string) {
  std::lock_guard lock(mutex);
  if (++handles[string] == 1)
    WRTLedgerAdd(kWRTLedgerStrings, 1);
  WRTLedgerAdd(kWRTLedgerStringHandles, 1);
}

void countHandleReleased(HSTRING string) {
  std::lock_guard lock(mutex);
  const auto found = handles.find(string);
  if (found == handles.end())
    return;
  WRTLedgerAdd(kWRTLedgerStringHandles, -1);
  if (--found->second == 0) {
    handles.erase(found);
    WRTLedgerAdd(kWRTLedgerStrings, -1);
  }
}

} // namespace wrt::wine
