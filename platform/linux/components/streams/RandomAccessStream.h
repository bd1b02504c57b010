#ifndef WRT_RANDOM_ACCESS_STREAM_H
#define WRT_RANDOM_ACCESS_STREAM_H

#include "platform/linux/components/streams/ByteStore.h"
#include "platform/linux/components/streams/StreamTypes.h"
#include "platform/linux/implement/Implements.h"

#include <abi/Windows.Foundation.abi.h>

#include <string>

namespace wrt::components {

/// A position within the content of a byte store. Clones and the streams at positions share the
/// content, not the position, and close for themselves. After it was closed every member fails with
/// `RO_E_CLOSED`. Operations on one stream happen one after the other.
class RandomAccessStream final : public Implements<abi::IRandomAccessStream, abi::IOutputStream,
                                                   abi::IClosable, abi::IInputStream> {
public:
  /// `className` is what the stream tells as its runtime class.
  RandomAccessStream(std::shared_ptr<ByteStore> store, std::u16string className,
                     uint64_t position = 0)
      : store_(std::move(store)), className_(std::move(className)), position_(position) {}

  HRESULT WRT_ABI get_Size(unsigned long long *size) override;
  HRESULT WRT_ABI put_Size(unsigned long long size) override;
  HRESULT WRT_ABI GetInputStreamAt(unsigned long long position,
                                   abi::IInputStream **result) override;
  HRESULT WRT_ABI GetOutputStreamAt(unsigned long long position,
                                    abi::IOutputStream **result) override;
  HRESULT WRT_ABI get_Position(unsigned long long *position) override;
  HRESULT WRT_ABI Seek(unsigned long long position) override;
  HRESULT WRT_ABI CloneStream(abi::IRandomAccessStream **result) override;
  HRESULT WRT_ABI get_CanRead(unsigned char *canRead) override;
  HRESULT WRT_ABI get_CanWrite(unsigned char *canWrite) override;

  HRESULT WRT_ABI
  ReadAsync(abi::IBuffer *buffer, unsigned count, int options,
            abi::IAsyncOperationWithProgress__2_WRTIBuffer_P_WRTUINT32 **result) override;
  HRESULT WRT_ABI
  WriteAsync(abi::IBuffer *buffer,
             abi::IAsyncOperationWithProgress__2_WRTUINT32_WRTUINT32 **result) override;
  HRESULT WRT_ABI FlushAsync(abi::IAsyncOperation__1_WRTbool **result) override;
  HRESULT WRT_ABI Close() override;

private:
  std::u16string_view runtimeClassName() const override { return className_; }
  /// The content, or null once closed.
  std::shared_ptr<ByteStore> store() const;
  HRESULT read(abi::IBuffer *buffer, uint32_t count, uint32_t *done);
  HRESULT write(abi::IBuffer *buffer, uint32_t *done);
  template <class Interface>
  HRESULT another(uint64_t position, Interface **result);

  mutable std::mutex mutex_; ///< guards the two below
  std::shared_ptr<ByteStore> store_;
  const std::u16string className_;
  uint64_t position_;
  std::mutex order_; ///< held while an operation reads or writes
};

/// `stream` (borrowed) as one that knows the type of its content, which it forwards to.
ComPtr<abi::IRandomAccessStreamWithContentType> withContentType(abi::IRandomAccessStream *stream,
                                                                std::u16string_view contentType);

} // namespace wrt::components

#endif
