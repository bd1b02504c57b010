#ifndef WRT_BYTE_BUFFER_H
#define WRT_BYTE_BUFFER_H

#include "platform/linux/implement/Implements.h"

#include <abi/Windows.Storage.Streams.abi.h>
#include <atomic>

namespace wrt::components {

/// A buffer over bytes that somebody else owns, and that must outlive it.
class ByteBuffer : public implement::Implements<abi::IBuffer, abi::IBufferByteAccess> {
public:
  ByteBuffer(uint8_t *bytes, uint32_t capacity, uint32_t length)
      : bytes_(bytes), capacity_(capacity), length_(length) {}

  HRESULT WRT_ABI get_Capacity(unsigned *capacity) override {
    if (capacity == nullptr)
      return status::kPointer;
    *capacity = capacity_;
    return status::kOk;
  }

  HRESULT WRT_ABI get_Length(unsigned *length) override {
    if (length == nullptr)
      return status::kPointer;
    *length = length_;
    return status::kOk;
  }

  HRESULT WRT_ABI put_Length(unsigned length) override {
    if (length > capacity_)
      return status::kInvalidArgument;
    length_ = length;
    return status::kOk;
  }

  HRESULT WRT_ABI Buffer(uint8_t **bytes) override {
    if (bytes == nullptr)
      return status::kPointer;
    *bytes = bytes_;
    return status::kOk;
  }

private:
  std::u16string_view runtimeClassName() const override {
    return u"Windows.Storage.Streams.Buffer";
  }

  uint8_t *const bytes_;
  const uint32_t capacity_;
  std::atomic<uint32_t> length_;
};

} // namespace wrt::components

#endif
