#include "platform/linux/components/streams/RandomAccessStream.h"

#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/components/async/AsyncOperation.h"
#include "platform/linux/components/storage/FileStatus.h"

namespace wrt::components {
namespace {

constexpr std::u16string_view kInMemory = u"Windows.Storage.Streams.InMemoryRandomAccessStream";

class InMemoryFactory final : public ActivationFactory<> {
public:
  HRESULT WRT_ABI ActivateInstance(abi::IInspectable **instance) override {
    if (instance == nullptr)
      return status::kPointer;
    *instance = make<RandomAccessStream>(std::make_shared<MemoryStore>(), std::u16string(kInMemory))
                    .detach()
                    ->identity();
    return status::kOk;
  }

private:
  std::u16string_view runtimeClassName() const override { return kInMemory; }
};

const activation::Registration registration(kInMemory, activation::makeFactory<InMemoryFactory>);

} // namespace

std::shared_ptr<ByteStore> RandomAccessStream::store() const {
  std::lock_guard lock(mutex_);
  return store_;
}

HRESULT RandomAccessStream::get_Size(unsigned long long *size) {
  if (size == nullptr)
    return status::kPointer;
  *size = 0;
  const auto content = store();
  if (content == nullptr)
    return status::kClosed;
  uint64_t bytes = 0;
  const HRESULT status = content->size(&bytes);
  *size = bytes;
  return status;
}

HRESULT RandomAccessStream::put_Size(unsigned long long size) {
  const auto content = store();
  return content == nullptr ? status::kClosed : content->resize(size);
}

template <class Interface>
HRESULT RandomAccessStream::another(uint64_t position, Interface **result) {
  if (result == nullptr)
    return status::kPointer;
  *result = nullptr;
  auto content = store();
  if (content == nullptr)
    return status::kClosed;
  return makeInto<RandomAccessStream>(result, std::move(content), className_, position);
}

HRESULT RandomAccessStream::GetInputStreamAt(unsigned long long position,
                                             abi::IInputStream **result) {
  return another(position, result);
}

HRESULT RandomAccessStream::GetOutputStreamAt(unsigned long long position,
                                              abi::IOutputStream **result) {
  const auto content = store();
  if (content != nullptr && result != nullptr && !content->canWrite()) {
    *result = nullptr;
    return kAccessDenied;
  }
  return another(position, result);
}

HRESULT RandomAccessStream::get_Position(unsigned long long *position) {
  if (position == nullptr)
    return status::kPointer;
  std::lock_guard lock(mutex_);
  *position = position_;
  return store_ == nullptr ? status::kClosed : status::kOk;
}

HRESULT RandomAccessStream::Seek(unsigned long long position) {
  std::lock_guard lock(mutex_);
  if (store_ == nullptr)
    return status::kClosed;
  position_ = position;
  return status::kOk;
}

HRESULT RandomAccessStream::CloneStream(abi::IRandomAccessStream **result) {
  return another(0, result);
}

HRESULT RandomAccessStream::get_CanRead(unsigned char *canRead) {
  if (canRead == nullptr)
    return status::kPointer;
  *canRead = 1;
  return store() == nullptr ? status::kClosed : status::kOk;
}

HRESULT RandomAccessStream::get_CanWrite(unsigned char *canWrite) {
  if (canWrite == nullptr)
    return status::kPointer;
  const auto content = store();
  *canWrite = content != nullptr && content->canWrite();
  return content == nullptr ? status::kClosed : status::kOk;
}

HRESULT RandomAccessStream::read(abi::IBuffer *buffer, uint32_t count, uint32_t *done) {
  std::lock_guard turn(order_);
  uint64_t position = 0;
  get_Position(reinterpret_cast<unsigned long long *>(&position));
  const auto content = store();
  if (content == nullptr)
    return status::kClosed;
  std::span<uint8_t> room;
  HRESULT status = roomOf(buffer, &room);
  size_t got = 0;
  if (status >= 0)
    status = content->read(position, room.first(std::min<size_t>(count, room.size())), &got);
  if (status < 0)
    return status;
  *done = static_cast<uint32_t>(got);
  Seek(position + got);
  return buffer->put_Length(*done);
}

HRESULT RandomAccessStream::write(abi::IBuffer *buffer, uint32_t *done) {
  std::lock_guard turn(order_);
  uint64_t position = 0;
  get_Position(reinterpret_cast<unsigned long long *>(&position));
  const auto content = store();
  if (content == nullptr)
    return status::kClosed;
  std::span<const uint8_t> bytes;
  HRESULT status = contentOf(buffer, &bytes);
  if (status >= 0)
    status = content->write(position, bytes);
  if (status < 0)
    return status;
  *done = static_cast<uint32_t>(bytes.size());
  Seek(position + *done);
  return status::kOk;
}

HRESULT
RandomAccessStream::ReadAsync(abi::IBuffer *buffer, unsigned count, int /*options*/,
                              abi::IAsyncOperationWithProgress__2_WRTIBuffer_P_WRTUINT32 **result) {
  if (result == nullptr)
    return status::kPointer;
  *result = nullptr;
  std::span<uint8_t> room;
  if (const HRESULT status = roomOf(buffer, &room); status < 0)
    return status;
  if (count > room.size())
    return status::kInvalidArgument;
  if (store() == nullptr)
    return status::kClosed;
  return startAsync<BufferRef, UInt32>(
      result,
      [self = ComPtr(this), buffer = ComPtr(buffer),
       count](const Work<UInt32> &work, ComPtr<abi::IBuffer> &filled) -> HRESULT {
        uint32_t done = 0;
        if (const HRESULT status = self->read(buffer.get(), count, &done); status < 0)
          return status;
        work.report(done);
        filled = buffer;
        return status::kOk;
      });
}

HRESULT
RandomAccessStream::WriteAsync(abi::IBuffer *buffer,
                               abi::IAsyncOperationWithProgress__2_WRTUINT32_WRTUINT32 **result) {
  if (result == nullptr)
    return status::kPointer;
  *result = nullptr;
  std::span<const uint8_t> content;
  if (const HRESULT status = contentOf(buffer, &content); status < 0)
    return status;
  const auto bytes = store();
  if (bytes == nullptr)
    return status::kClosed;
  if (!bytes->canWrite())
    return kAccessDenied;
  return startAsync<UInt32, UInt32>(result,
                                    [self = ComPtr(this), buffer = ComPtr(buffer)](
                                        const Work<UInt32> &work, uint32_t &done) -> HRESULT {
                                      const HRESULT status = self->write(buffer.get(), &done);
                                      if (status >= 0)
                                        work.report(done);
                                      return status;
                                    });
}

HRESULT RandomAccessStream::FlushAsync(abi::IAsyncOperation__1_WRTbool **result) {
  if (result == nullptr)
    return status::kPointer;
  *result = nullptr;
  if (store() == nullptr)
    return status::kClosed;
  return startAsync<Boolean>(
      result, [self = ComPtr(this)](const Work<> &, uint8_t &flushed) -> HRESULT {
        std::lock_guard turn(self->order_);
        const auto content = self->store();
        const HRESULT status = content == nullptr ? status::kClosed : content->flush();
        flushed = status >= 0;
        return status;
      });
}

HRESULT RandomAccessStream::Close() {
  std::shared_ptr<ByteStore> dropped;
  std::lock_guard lock(mutex_);
  std::swap(dropped, store_);
  return status::kOk;
}

} // namespace wrt::components
