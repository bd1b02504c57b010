#include "platform/linux/component/Implements.h"

#include <WRTBridge.h>
#include <atomic>

namespace wrt {
namespace {

/// Windows.Storage.Streams.IBuffer (Windows 10 SDK 10.0.16299.0, windows.storage.streams.h).
struct IBuffer : abi::IInspectable {
  static constexpr GUID kIid{
      0x905A0FE0, 0xBC53, 0x11DF, {0x8C, 0x49, 0x00, 0x1E, 0x4F, 0xC6, 0x86, 0xDA}};

  virtual HRESULT WRT_ABI get_Capacity(uint32_t *value) = 0;
  virtual HRESULT WRT_ABI get_Length(uint32_t *value) = 0;
  virtual HRESULT WRT_ABI put_Length(uint32_t value) = 0;

protected:
  ~IBuffer() = default;
};

/// A buffer over bytes that somebody else owns; all of them are content at first.
class WrappingBuffer final : public component::Implements<IBuffer, abi::IBufferByteAccess> {
public:
  WrappingBuffer(uint8_t *bytes, uint32_t capacity)
      : bytes_(bytes), capacity_(capacity), length_(capacity) {}

  HRESULT WRT_ABI get_Capacity(uint32_t *value) override {
    if (value == nullptr)
      return status::kPointer;
    *value = capacity_;
    return status::kOk;
  }

  HRESULT WRT_ABI get_Length(uint32_t *value) override {
    if (value == nullptr)
      return status::kPointer;
    *value = length_;
    return status::kOk;
  }

  HRESULT WRT_ABI put_Length(uint32_t value) override {
    if (value > capacity_)
      return status::kInvalidArgument;
    length_ = value;
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
    return u"Windows.Storage.Streams.IBuffer";
  }

  uint8_t *bytes_;
  uint32_t capacity_;
  std::atomic<uint32_t> length_;
};

} // namespace
} // namespace wrt

using namespace wrt;

WRT_DLLEXPORT void *WRTCreateBufferWrappingBytes(void *bytes, uint32_t length) {
  IBuffer *buffer = component::make<WrappingBuffer>(static_cast<uint8_t *>(bytes), length).detach();
  return buffer;
}

WRT_DLLEXPORT GUID WRTIBufferByteAccessGetUUID() { return wrt::abi::IBufferByteAccess::kIid; }

WRT_DLLEXPORT HRESULT WRTIBufferByteAccessBuffer(void *byteAccess, uint8_t **bytes) {
  return static_cast<wrt::abi::IBufferByteAccess *>(byteAccess)->Buffer(bytes);
}
