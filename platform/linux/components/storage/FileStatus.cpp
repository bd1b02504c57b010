#include "platform/linux/components/storage/FileStatus.h"

#include <cerrno>

namespace wrt::components {

HRESULT statusOfErrno(int error) {
  switch (error) {
  case 0:
    return status::kOk;
  case ENOENT:
    return kFileNotFound;
  case ENOTDIR:
    return kPathNotFound;
  case EMFILE:
  case ENFILE:
    return kTooManyOpenFiles;
  case EACCES:
  case EPERM:
  case EISDIR: // a folder cannot be opened as a file
    return kAccessDenied;
  case EXDEV:
    return kNotSameDevice;
  case EROFS:
    return kWriteProtect;
  case EBUSY:
  case ETXTBSY:
    return kSharingViolation;
  case ENOSPC:
  case EDQUOT:
    return kDiskFull;
  case ENOTEMPTY:
    return kDirectoryNotEmpty;
  case EEXIST:
    return kAlreadyExists;
  case ENAMETOOLONG:
    return kNameTooLong;
  case EFBIG:
    return kFileTooLarge;
  case EINVAL:
    return status::kInvalidArgument;
  case ENOMEM:
    return status::kOutOfMemory;
  case EIO:
    return kDeviceError;
  case ELOOP:
    return kCannotResolve;
  default:
    return status::kFail;
  }
}

HRESULT statusOf(const std::error_code &error) {
  if (!error)
    return status::kOk;
  const bool system =
      error.category() == std::system_category() || error.category() == std::generic_category();
  return system ? statusOfErrno(error.value()) : status::kFail;
}

} // namespace wrt::components
