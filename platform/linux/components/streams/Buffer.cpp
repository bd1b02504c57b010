#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/components/streams/ByteBuffer.h"
#include "platform/linux/components/streams/StreamTypes.h"

#include <abi/Windows.Foundation.abi.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <memory>
#include <utility>

namespace wrt::components {
namespace {

struct Free {
  void operator()(uint8_t *bytes) const { std::free(bytes); }
};
using Bytes = std::unique_ptr<uint8_t[], Free>;

/// Windows.Storage.Streams.Buffer, which owns its bytes.
class OwningBuffer final : public ByteBuffer {
public:
  OwningBuffer(Bytes bytes, uint32_t capacity)
      : ByteBuffer(bytes.get(), capacity, 0), bytes_(std::move(bytes)) {}

private:
  const Bytes bytes_;
};

/// How the statics get at the buffer behind a memory buffer; of no use outside of this file.
struct IBufferOwner : abi::IUnknown {
  static constexpr GUID kIid{
      0x8F2A6E0C, 0x5B1D, 0x4C37, {0x9A, 0x4E, 0x61, 0x7C, 0xD0, 0x35, 0x2B, 0xF8}};

  /// Borrowed; null once closed.
  virtual abi::IBuffer *ownedBuffer() = 0;

protected:
  ~IBufferOwner() = default;
};

/// Windows.Foundation.MemoryBuffer over a buffer.
class MemoryBuffer final : public Implements<abi::IMemoryBuffer, abi::IClosable, IBufferOwner> {
public:
  explicit MemoryBuffer(abi::IBuffer *buffer) : buffer_(buffer) {}

  HRESULT WRT_ABI Close() override {
    closed_ = true;
    return status::kOk;
  }
  abi::IBuffer *ownedBuffer() override { return closed_ ? nullptr : buffer_.get(); }

private:
  std::u16string_view runtimeClassName() const override {
    return u"Windows.Foundation.MemoryBuffer";
  }

  const ComPtr<abi::IBuffer> buffer_;
  std::atomic<bool> closed_ = false;
};

class BufferFactory final : public ActivationFactory<abi::IBufferFactory, abi::IBufferStatics> {
public:
  HRESULT WRT_ABI Create(unsigned capacity, abi::IBuffer **result) override {
    const auto buffer = makeBuffer(capacity);
    const HRESULT status = buffer.copyTo(result);
    return status < 0 || buffer ? status : status::kOutOfMemory;
  }

  HRESULT WRT_ABI CreateCopyFromMemoryBuffer(abi::IMemoryBuffer *input,
                                             abi::IBuffer **result) override {
    if (result == nullptr)
      return status::kPointer;
    *result = nullptr;
    const auto owner = ComPtr(input).as<IBufferOwner>();
    if (!owner)
      return status::kInvalidArgument;
    abi::IBuffer *original = owner->ownedBuffer();
    if (original == nullptr)
      return status::kClosed;
    std::span<const uint8_t> content;
    if (const HRESULT status = contentOf(original, &content); status < 0)
      return status;
    const auto copy = makeBuffer(static_cast<uint32_t>(content.size()));
    if (!copy)
      return status::kOutOfMemory;
    std::span<uint8_t> room;
    roomOf(copy.get(), &room);
    std::ranges::copy(content, room.begin());
    copy->put_Length(static_cast<uint32_t>(content.size()));
    return copy.copyTo(result);
  }

  HRESULT WRT_ABI CreateMemoryBufferOverIBuffer(abi::IBuffer *input,
                                                abi::IMemoryBuffer **result) override {
    if (result == nullptr)
      return status::kPointer;
    *result = nullptr;
    if (input == nullptr)
      return status::kInvalidArgument;
    return makeInto<MemoryBuffer>(result, input);
  }

private:
  std::u16string_view runtimeClassName() const override {
    return u"Windows.Storage.Streams.Buffer";
  }
};

const activation::Registration registration(u"Windows.Storage.Streams.Buffer",
                                            activation::makeFactory<BufferFactory>);

template <class Byte, class Measure>
HRESULT bytesOf(abi::IBuffer *buffer, Measure measure, std::span<Byte> *bytes) {
  const auto access = ComPtr(buffer).as<abi::IBufferByteAccess>();
  if (!access)
    return status::kInvalidArgument;
  unsigned size = 0;
  uint8_t *start = nullptr;
  HRESULT status = (buffer->*measure)(&size);
  if (status >= 0)
    status = access->Buffer(&start);
  if (status >= 0)
    *bytes = {start, size};
  return status;
}

} // namespace

HRESULT roomOf(abi::IBuffer *buffer, std::span<uint8_t> *bytes) {
  return bytesOf(buffer, &abi::IBuffer::get_Capacity, bytes);
}

HRESULT contentOf(abi::IBuffer *buffer, std::span<const uint8_t> *bytes) {
  return bytesOf(buffer, &abi::IBuffer::get_Length, bytes);
}

ComPtr<abi::IBuffer> makeBuffer(uint32_t capacity) {
  // Zeroed memory of this size comes from the system and costs nothing until it is written to.
  Bytes bytes(static_cast<uint8_t *>(std::calloc(std::max(capacity, 1u), 1)));
  if (bytes == nullptr)
    return nullptr;
  return make<OwningBuffer>(std::move(bytes), capacity);
}

} // namespace wrt::components
