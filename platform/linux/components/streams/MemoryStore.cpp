#include "platform/linux/components/streams/ByteStore.h"
#include "platform/linux/memory/Allocation.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <stdexcept>

namespace wrt::components {

HRESULT MemoryStore::size(uint64_t *size) {
  std::lock_guard lock(mutex_);
  *size = bytes_.size();
  return status::kOk;
}

HRESULT MemoryStore::resize(uint64_t size) {
  std::lock_guard lock(mutex_);
  return resizeLocked(size);
}

HRESULT MemoryStore::resizeLocked(uint64_t size) {
  const memory::FailuresAreCaught guard;
  try {
    bytes_.resize(size);
    return status::kOk;
  } catch (const std::length_error &) {
    return status::kOutOfMemory;
  } catch (const std::bad_alloc &) {
    return status::kOutOfMemory;
  }
}

HRESULT MemoryStore::read(uint64_t offset, std::span<uint8_t> bytes, size_t *count) {
  std::lock_guard lock(mutex_);
  *count = offset >= bytes_.size() ? 0 : std::min<uint64_t>(bytes.size(), bytes_.size() - offset);
  if (*count != 0)
    std::memcpy(bytes.data(), bytes_.data() + offset, *count);
  return status::kOk;
}

HRESULT MemoryStore::write(uint64_t offset, std::span<const uint8_t> bytes) {
  if (bytes.empty())
    return status::kOk;
  std::lock_guard lock(mutex_);
  uint64_t end;
  if (__builtin_add_overflow(offset, bytes.size(), &end))
    return status::kOutOfMemory;
  if (end > bytes_.size()) {
    if (const HRESULT status = resizeLocked(end); status < 0)
      return status;
  }
  std::memcpy(bytes_.data() + offset, bytes.data(), bytes.size());
  return status::kOk;
}

} // namespace wrt::components
