/// The status values that this project's code names; the list of all is WRTStatuses.inc.
#ifndef WRT_STATUS_H
#define WRT_STATUS_H

#include <WRTObjcBridge/WRTTypes.h>

namespace wrt::status {

/// The listed statuses under winerror.h's names.
namespace listed {
enum : uint32_t {
#define WRT_STATUS(value, name, text) k_##name = value,
#define WRT_UNNAMED_STATUS(value, text)
#include <WRTStatuses.inc>
};
} // namespace listed

inline constexpr HRESULT kOk = 0;    ///< S_OK
inline constexpr HRESULT kFalse = 1; ///< S_FALSE

inline constexpr HRESULT kNotImplemented = static_cast<HRESULT>(listed::k_E_NOTIMPL);
inline constexpr HRESULT kNoInterface = static_cast<HRESULT>(listed::k_E_NOINTERFACE);
inline constexpr HRESULT kPointer = static_cast<HRESULT>(listed::k_E_POINTER);
inline constexpr HRESULT kAbort = static_cast<HRESULT>(listed::k_E_ABORT);
inline constexpr HRESULT kFail = static_cast<HRESULT>(listed::k_E_FAIL);
inline constexpr HRESULT kUnexpected = static_cast<HRESULT>(listed::k_E_UNEXPECTED);
inline constexpr HRESULT kOutOfMemory = static_cast<HRESULT>(listed::k_E_OUTOFMEMORY);
inline constexpr HRESULT kInvalidArgument = static_cast<HRESULT>(listed::k_E_INVALIDARG);
inline constexpr HRESULT kBounds = static_cast<HRESULT>(listed::k_E_BOUNDS);
inline constexpr HRESULT kChangedState = static_cast<HRESULT>(listed::k_E_CHANGED_STATE);
inline constexpr HRESULT kIllegalStateChange =
    static_cast<HRESULT>(listed::k_E_ILLEGAL_STATE_CHANGE);
inline constexpr HRESULT kIllegalMethodCall = static_cast<HRESULT>(listed::k_E_ILLEGAL_METHOD_CALL);
inline constexpr HRESULT kClosed = static_cast<HRESULT>(listed::k_RO_E_CLOSED);
inline constexpr HRESULT kIllegalDelegateAssignment =
    static_cast<HRESULT>(listed::k_E_ILLEGAL_DELEGATE_ASSIGNMENT);
inline constexpr HRESULT kClassNotRegistered = static_cast<HRESULT>(listed::k_REGDB_E_CLASSNOTREG);
inline constexpr HRESULT kDisconnected = static_cast<HRESULT>(listed::k_RPC_E_DISCONNECTED);

} // namespace wrt::status

#endif
