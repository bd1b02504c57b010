#ifndef WRT_TRACE_STATUS_H
#define WRT_TRACE_STATUS_H

#include <WRTObjcBridge/WRTTypes.h>

#include <optional>
#include <string>

namespace wrt::trace {

/// As in `E_BOUNDS (0x8000000B)`; the digits alone for a status without a name, `ok` for `S_OK`,
/// `S_FALSE` for that.
std::string statusText(HRESULT status);
/// The status of that name, as in `E_BOUNDS`, or of those hexadecimal digits, as in `0x8000000B`.
std::optional<HRESULT> statusNamed(const std::string &text);

} // namespace wrt::trace

#endif
