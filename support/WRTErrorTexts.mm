#import <WRTSupport/WRTErrorTexts.h>

#include <WRTObjcBridge/WRTErrors.h>
#include <WRTStatus.h>
#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <utility>

namespace listed = wrt::status::listed;

namespace {

/// A status and what it stands for.
struct Status {
  uint32_t value;
  const char *name; ///< as in winerror.h (Windows 10 SDK 10.0.16299.0); null when it has none there
  const char *text;
};

/// By value.
constexpr Status kStatuses[] = {
#define WRT_STATUS(value, name, text) {value, #name, text},
#define WRT_UNNAMED_STATUS(value, text) {value, nullptr, text},
#include <WRTStatuses.inc>
};

// The public constants are written out, for those who read the header.
static_assert(std::ranges::all_of(
    std::initializer_list<std::pair<WRTError, uint32_t>>{
        {WRTErrorPending, listed::k_E_PENDING},
        {WRTErrorBounds, listed::k_E_BOUNDS},
        {WRTErrorChangedState, listed::k_E_CHANGED_STATE},
        {WRTErrorIllegalStateChange, listed::k_E_ILLEGAL_STATE_CHANGE},
        {WRTErrorIllegalMethodCall, listed::k_E_ILLEGAL_METHOD_CALL},
        {WRTErrorClosed, listed::k_RO_E_CLOSED},
        {WRTErrorIllegalDelegateAssignment, listed::k_E_ILLEGAL_DELEGATE_ASSIGNMENT},
        {WRTErrorNotImplemented, listed::k_E_NOTIMPL},
        {WRTErrorNoInterface, listed::k_E_NOINTERFACE},
        {WRTErrorPointer, listed::k_E_POINTER},
        {WRTErrorAbort, listed::k_E_ABORT},
        {WRTErrorFail, listed::k_E_FAIL},
        {WRTErrorUnexpected, listed::k_E_UNEXPECTED},
        {WRTErrorDisconnected, listed::k_RPC_E_DISCONNECTED},
        {WRTErrorClassNotRegistered, listed::k_REGDB_E_CLASSNOTREG},
        {WRTErrorAccessDenied, listed::k_E_ACCESSDENIED},
        {WRTErrorOutOfMemory, listed::k_E_OUTOFMEMORY},
        {WRTErrorInvalidArgument, listed::k_E_INVALIDARG},
    },
    [](const auto &pair) { return static_cast<uint32_t>(pair.first) == pair.second; }));

} // namespace

NSString *WRTErrorDescription(NSError *error) {
  if (!error)
    return @"no error";
  if (![[error domain] isEqualToString:@"WRT"])
    return [error description];
  const auto value = static_cast<uint32_t>([error code]);
  const auto *found = std::find_if(std::begin(kStatuses), std::end(kStatuses),
                                   [value](const Status &status) { return status.value == value; });
  if (found == std::end(kStatuses))
    return [NSString stringWithFormat:@"failed (0x%08X)", value];
  if (!found->name)
    return [NSString stringWithFormat:@"%s (0x%08X)", found->text, value];
  return [NSString stringWithFormat:@"%s (%s, 0x%08X)", found->text, found->name, value];
}
