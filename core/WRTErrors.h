/// The errors of the bridges by name: constants, for which nothing is linked.
#ifndef WRT_ERRORS_H
#define WRT_ERRORS_H

#import <Foundation/Foundation.h>
#include <WRTObjcBridge/WRTTypes.h>

/// The domain of every error that a bridge stores; the code is the status.
#define WRTErrorDomain @"WRT"

#if defined(__cplusplus)
#define WRT_ERROR(status) static_cast<int>(status)
#else
#define WRT_ERROR(status) (int)(status)
#endif

/// The statuses that the Windows Runtime documents for all its members (Windows 10 SDK
/// 10.0.16299.0, winerror.h). Other codes occur: any failing status can be one.
typedef WRT_ENUM(WRTError){
    WRTErrorPending = WRT_ERROR(0x8000000A),                   ///< E_PENDING
    WRTErrorBounds = WRT_ERROR(0x8000000B),                    ///< E_BOUNDS
    WRTErrorChangedState = WRT_ERROR(0x8000000C),              ///< E_CHANGED_STATE
    WRTErrorIllegalStateChange = WRT_ERROR(0x8000000D),        ///< E_ILLEGAL_STATE_CHANGE
    WRTErrorIllegalMethodCall = WRT_ERROR(0x8000000E),         ///< E_ILLEGAL_METHOD_CALL
    WRTErrorClosed = WRT_ERROR(0x80000013),                    ///< RO_E_CLOSED
    WRTErrorIllegalDelegateAssignment = WRT_ERROR(0x80000018), ///< E_ILLEGAL_DELEGATE_ASSIGNMENT
    WRTErrorNotImplemented = WRT_ERROR(0x80004001),            ///< E_NOTIMPL
    WRTErrorNoInterface = WRT_ERROR(0x80004002),               ///< E_NOINTERFACE
    WRTErrorPointer = WRT_ERROR(0x80004003),                   ///< E_POINTER
    WRTErrorAbort = WRT_ERROR(0x80004004),                     ///< E_ABORT
    WRTErrorFail = WRT_ERROR(0x80004005),                      ///< E_FAIL
    WRTErrorUnexpected = WRT_ERROR(0x8000FFFF),                ///< E_UNEXPECTED
    WRTErrorDisconnected = WRT_ERROR(0x80010108),              ///< RPC_E_DISCONNECTED
    WRTErrorClassNotRegistered = WRT_ERROR(0x80040154),        ///< REGDB_E_CLASSNOTREG
    WRTErrorAccessDenied = WRT_ERROR(0x80070005),              ///< E_ACCESSDENIED
    WRTErrorOutOfMemory = WRT_ERROR(0x8007000E),               ///< E_OUTOFMEMORY
    WRTErrorInvalidArgument = WRT_ERROR(0x80070057),           ///< E_INVALIDARG
};

#undef WRT_ERROR

#endif
