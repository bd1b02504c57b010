/// The status values that this project's code names (Windows 10 SDK 10.0.16299.0, winerror.h).
#ifndef WRT_STATUS_H
#define WRT_STATUS_H

#include <WRTObjcBridge/WRTTypes.h>

namespace wrt::status {

inline constexpr HRESULT kOk = 0;    ///< S_OK
inline constexpr HRESULT kFalse = 1; ///< S_FALSE

inline constexpr HRESULT kNotImplemented = static_cast<HRESULT>(0x80004001);  ///< E_NOTIMPL
inline constexpr HRESULT kNoInterface = static_cast<HRESULT>(0x80004002);     ///< E_NOINTERFACE
inline constexpr HRESULT kPointer = static_cast<HRESULT>(0x80004003);         ///< E_POINTER
inline constexpr HRESULT kAbort = static_cast<HRESULT>(0x80004004);           ///< E_ABORT
inline constexpr HRESULT kFail = static_cast<HRESULT>(0x80004005);            ///< E_FAIL
inline constexpr HRESULT kUnexpected = static_cast<HRESULT>(0x8000FFFF);      ///< E_UNEXPECTED
inline constexpr HRESULT kOutOfMemory = static_cast<HRESULT>(0x8007000E);     ///< E_OUTOFMEMORY
inline constexpr HRESULT kInvalidArgument = static_cast<HRESULT>(0x80070057); ///< E_INVALIDARG
inline constexpr HRESULT kBounds = static_cast<HRESULT>(0x8000000B);          ///< E_BOUNDS
inline constexpr HRESULT kChangedState = static_cast<HRESULT>(0x8000000C);    ///< E_CHANGED_STATE
/// E_ILLEGAL_STATE_CHANGE
inline constexpr HRESULT kIllegalStateChange = static_cast<HRESULT>(0x8000000D);
/// E_ILLEGAL_METHOD_CALL
inline constexpr HRESULT kIllegalMethodCall = static_cast<HRESULT>(0x8000000E);
/// RO_E_CLOSED
inline constexpr HRESULT kClosed = static_cast<HRESULT>(0x80000013);
/// E_ILLEGAL_DELEGATE_ASSIGNMENT
inline constexpr HRESULT kIllegalDelegateAssignment = static_cast<HRESULT>(0x80000018);
/// REGDB_E_CLASSNOTREG
inline constexpr HRESULT kClassNotRegistered = static_cast<HRESULT>(0x80040154);
/// RPC_E_DISCONNECTED
inline constexpr HRESULT kDisconnected = static_cast<HRESULT>(0x80010108);

} // namespace wrt::status

#endif
