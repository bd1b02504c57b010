/// The ledger's view of strings that belong to somebody else's platform: combase does not tell when
/// a string dies, so the handles that went through the platform interface are counted here.
#ifndef WRT_WINE_STRING_LEDGER_H
#define WRT_WINE_STRING_LEDGER_H

#include <WRTObjcBridge/WRTTypes.h>

namespace wrt::wine {

/// A handle (not null) was made: a new string or one more handle to a string. Any thread.
WRT_DLLEXPORT void countHandleMade(HSTRING string);
/// A handle was given up. A string that was never counted, such as one that WinRT itself made, is
/// ignored.
WRT_DLLEXPORT void countHandleReleased(HSTRING string);

} // namespace wrt::wine

#endif
