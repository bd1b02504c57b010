/// The statuses with which WinRT's storage classes fail (Windows 10 SDK 10.0.16299.0, winerror.h;
/// the 0x8007.... are Win32 errors as HRESULTs).
#ifndef WRT_FILE_STATUS_H
#define WRT_FILE_STATUS_H

#include <WRTStatus.h>

#include <system_error>

namespace wrt::components {

constexpr HRESULT win32Status(uint32_t error) { return static_cast<HRESULT>(0x80070000u | error); }

inline constexpr HRESULT kFileNotFound = win32Status(2);        ///< ERROR_FILE_NOT_FOUND
inline constexpr HRESULT kPathNotFound = win32Status(3);        ///< ERROR_PATH_NOT_FOUND
inline constexpr HRESULT kTooManyOpenFiles = win32Status(4);    ///< ERROR_TOO_MANY_OPEN_FILES
inline constexpr HRESULT kAccessDenied = win32Status(5);        ///< ERROR_ACCESS_DENIED
inline constexpr HRESULT kNotSameDevice = win32Status(17);      ///< ERROR_NOT_SAME_DEVICE
inline constexpr HRESULT kWriteProtect = win32Status(19);       ///< ERROR_WRITE_PROTECT
inline constexpr HRESULT kSharingViolation = win32Status(32);   ///< ERROR_SHARING_VIOLATION
inline constexpr HRESULT kDiskFull = win32Status(112);          ///< ERROR_DISK_FULL
inline constexpr HRESULT kDirectoryNotEmpty = win32Status(145); ///< ERROR_DIR_NOT_EMPTY
inline constexpr HRESULT kAlreadyExists = win32Status(183);     ///< ERROR_ALREADY_EXISTS
inline constexpr HRESULT kNameTooLong = win32Status(206);       ///< ERROR_FILENAME_EXCED_RANGE
inline constexpr HRESULT kFileTooLarge = win32Status(223);      ///< ERROR_FILE_TOO_LARGE
/// ERROR_NO_UNICODE_TRANSLATION: a text file's bytes are no text in the encoding asked for.
inline constexpr HRESULT kNoUnicodeTranslation = win32Status(1113);
inline constexpr HRESULT kDeviceError = win32Status(1117); ///< ERROR_IO_DEVICE
/// ERROR_CANT_RESOLVE_FILENAME: symbolic links that go round in a circle.
inline constexpr HRESULT kCannotResolve = win32Status(1921);

/// What an error of the system is as a status; `S_OK` for none.
HRESULT statusOf(const std::error_code &error);
/// The same for `errno`.
HRESULT statusOfErrno(int error);

} // namespace wrt::components

#endif
