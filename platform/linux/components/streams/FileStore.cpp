#include "platform/linux/components/storage/FileStatus.h"
#include "platform/linux/components/streams/ByteStore.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace wrt::components {
namespace {

/// Offsets beyond what the system's signed ones hold.
bool isBeyond(uint64_t offset) { return offset > static_cast<uint64_t>(INT64_MAX); }

} // namespace

HRESULT FileStore::open(const std::filesystem::path &path, Access access,
                        std::shared_ptr<ByteStore> *store) {
  store->reset();
  // Without O_NONBLOCK opening a pipe would wait for somebody to write into it.
  const int mode = access == Access::kReadWrite ? O_RDWR : O_RDONLY;
  const int descriptor = ::open(path.c_str(), mode | O_CLOEXEC | O_NONBLOCK);
  if (descriptor < 0)
    return statusOfErrno(errno);
  struct stat facts;
  const bool regular = ::fstat(descriptor, &facts) == 0 && S_ISREG(facts.st_mode);
  if (!regular) {
    ::close(descriptor);
    return kAccessDenied;
  }
  store->reset(new FileStore(descriptor, access));
  return status::kOk;
}

FileStore::~FileStore() { ::close(descriptor_); }

HRESULT FileStore::size(uint64_t *size) {
  struct stat facts;
  if (::fstat(descriptor_, &facts) != 0)
    return statusOfErrno(errno);
  *size = static_cast<uint64_t>(facts.st_size);
  return status::kOk;
}

HRESULT FileStore::resize(uint64_t size) {
  if (!canWrite())
    return kAccessDenied;
  if (isBeyond(size))
    return kFileTooLarge;
  return ::ftruncate(descriptor_, static_cast<off_t>(size)) == 0 ? status::kOk
                                                                 : statusOfErrno(errno);
}

HRESULT FileStore::read(uint64_t offset, std::span<uint8_t> bytes, size_t *count) {
  *count = 0;
  while (*count < bytes.size() && !isBeyond(offset + *count)) {
    const ssize_t got = ::pread(descriptor_, bytes.data() + *count, bytes.size() - *count,
                                static_cast<off_t>(offset + *count));
    if (got < 0 && errno == EINTR)
      continue;
    if (got < 0)
      return statusOfErrno(errno);
    if (got == 0)
      break;
    *count += static_cast<size_t>(got);
  }
  return status::kOk;
}

HRESULT FileStore::write(uint64_t offset, std::span<const uint8_t> bytes) {
  if (!canWrite())
    return kAccessDenied;
  if (isBeyond(offset) || isBeyond(offset + bytes.size()))
    return kFileTooLarge;
  while (!bytes.empty()) {
    const ssize_t put =
        ::pwrite(descriptor_, bytes.data(), bytes.size(), static_cast<off_t>(offset));
    if (put < 0 && errno == EINTR)
      continue;
    if (put < 0)
      return statusOfErrno(errno);
    bytes = bytes.subspan(static_cast<size_t>(put));
    offset += static_cast<uint64_t>(put);
  }
  return status::kOk;
}

HRESULT FileStore::flush() {
  return !canWrite() || ::fdatasync(descriptor_) == 0 ? status::kOk : statusOfErrno(errno);
}

} // namespace wrt::components
