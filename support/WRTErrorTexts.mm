#import <WRTSupport/WRTErrorTexts.h>

#include <algorithm>
#include <iterator>

namespace {

/// A status and what it stands for.
struct Status {
  uint32_t value;
  const char *name; ///< as in winerror.h (Windows 10 SDK 10.0.16299.0); null when it has none there
  const char *text;
};

/// By value.
constexpr Status kStatuses[] = {
    {0x8000000A, "E_PENDING", "not there yet"},
    {0x8000000B, "E_BOUNDS", "out of range"},
    {0x8000000C, "E_CHANGED_STATE", "changed in the meantime"},
    {0x8000000D, "E_ILLEGAL_STATE_CHANGE", "not allowed in this state"},
    {0x8000000E, "E_ILLEGAL_METHOD_CALL", "called at the wrong moment"},
    {0x80000013, "RO_E_CLOSED", "already closed"},
    {0x80000018, "E_ILLEGAL_DELEGATE_ASSIGNMENT", "the handler is set already"},
    {0x80000019, "E_ASYNC_OPERATION_NOT_STARTED", "the operation was not started"},
    {0x8000001C, "RO_E_MUST_BE_AGILE", "the object is bound to its thread"},
    {0x8000001D, "RO_E_UNSUPPORTED_FROM_MTA", "only allowed on a window's thread"},
    {0x80004001, "E_NOTIMPL", "not implemented"},
    {0x80004002, "E_NOINTERFACE", "the object does not have the interface"},
    {0x80004003, "E_POINTER", "there is no object"},
    {0x80004004, "E_ABORT", "cancelled"},
    {0x80004005, "E_FAIL", "failed"},
    {0x80004021, "CO_E_NOT_SUPPORTED", "not supported"},
    {0x8000FFFF, "E_UNEXPECTED", "something unexpected went wrong"},
    {0x80010108, "RPC_E_DISCONNECTED", "the object is gone from its process"},
    {0x8001010E, "RPC_E_WRONG_THREAD", "called on another thread than the object's"},
    {0x80020005, "DISP_E_TYPEMISMATCH", "a value of another type"},
    {0x8002000A, "DISP_E_OVERFLOW", "the value does not fit"},
    {0x80030005, "STG_E_ACCESSDENIED", "access to the storage denied"},
    {0x80040154, "REGDB_E_CLASSNOTREG", "the class is not known"},
    {0x800401F0, "CO_E_NOTINITIALIZED", "the thread has not entered the Windows Runtime"},
    {0x80070002, "ERROR_FILE_NOT_FOUND", "not found"},
    {0x80070003, "ERROR_PATH_NOT_FOUND", "the path was not found"},
    {0x80070005, "E_ACCESSDENIED", "access denied"},
    {0x80070006, "E_HANDLE", "not a valid handle"},
    {0x8007000D, "ERROR_INVALID_DATA", "the data is not valid"},
    {0x8007000E, "E_OUTOFMEMORY", "not enough memory"},
    {0x80070015, "ERROR_NOT_READY", "the device is not ready"},
    {0x80070020, "ERROR_SHARING_VIOLATION", "in use elsewhere"},
    {0x80070026, "ERROR_HANDLE_EOF", "past the end of the file"},
    {0x80070032, "ERROR_NOT_SUPPORTED", "not supported"},
    {0x80070050, "ERROR_FILE_EXISTS", "exists already"},
    {0x80070057, "E_INVALIDARG", "an argument is not valid"},
    {0x80070070, "ERROR_DISK_FULL", "the disk is full"},
    {0x8007007A, "ERROR_INSUFFICIENT_BUFFER", "the buffer is too small"},
    {0x8007007B, "ERROR_INVALID_NAME", "the name is not valid"},
    {0x80070091, "ERROR_DIR_NOT_EMPTY", "the folder is not empty"},
    {0x800700B7, "ERROR_ALREADY_EXISTS", "exists already"},
    {0x80070216, "ERROR_ARITHMETIC_OVERFLOW", "the value does not fit"},
    {0x80070459, "ERROR_NO_UNICODE_TRANSLATION", "not a text in UTF-8 or UTF-16"},
    {0x80070490, "ERROR_NOT_FOUND", "the element was not found"},
    {0x800705B4, "ERROR_TIMEOUT", "the time is up"},
    {0x800706BA, "RPC_S_SERVER_UNAVAILABLE", "the server is not available"},
    {0x80073D54, "APPMODEL_ERROR_NO_PACKAGE", "the process has no package"},
    {0x80072EE7, "WININET_E_NAME_NOT_RESOLVED", "the server's name is not known"},
    {0x80072EFD, "WININET_E_CANNOT_CONNECT", "the server cannot be reached"},
    {0xC00CE556, nullptr, "not well-formed XML"},
    {0xC00CE558, nullptr, "XML without a root element"},
    {0xC00CE56D, nullptr, "an XML element is not closed by its own name"},
};

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
