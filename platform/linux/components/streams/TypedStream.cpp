#include "platform/linux/components/streams/RandomAccessStream.h"

#include "platform/linux/implement/StringHolder.h"

namespace wrt::components {
namespace {

/// A stream with the type of its content beside it. What it forwards to need not be ours.
class TypedStream final : public Implements<abi::IRandomAccessStreamWithContentType,
                                            abi::IContentTypeProvider, abi::IRandomAccessStream,
                                            abi::IOutputStream, abi::IClosable, abi::IInputStream> {
public:
  TypedStream(abi::IRandomAccessStream *stream, std::u16string_view contentType)
      : stream_(stream), contentType_(contentType) {}

  HRESULT WRT_ABI get_ContentType(HSTRING *type) override { return contentType_.copyTo(type); }

  HRESULT WRT_ABI get_Size(unsigned long long *size) override { return stream_->get_Size(size); }
  HRESULT WRT_ABI put_Size(unsigned long long size) override { return stream_->put_Size(size); }
  HRESULT WRT_ABI GetInputStreamAt(unsigned long long position,
                                   abi::IInputStream **result) override {
    return stream_->GetInputStreamAt(position, result);
  }
  HRESULT WRT_ABI GetOutputStreamAt(unsigned long long position,
                                    abi::IOutputStream **result) override {
    return stream_->GetOutputStreamAt(position, result);
  }
  HRESULT WRT_ABI get_Position(unsigned long long *position) override {
    return stream_->get_Position(position);
  }
  HRESULT WRT_ABI Seek(unsigned long long position) override { return stream_->Seek(position); }
  HRESULT WRT_ABI CloneStream(abi::IRandomAccessStream **result) override {
    return stream_->CloneStream(result);
  }
  HRESULT WRT_ABI get_CanRead(unsigned char *can) override { return stream_->get_CanRead(can); }
  HRESULT WRT_ABI get_CanWrite(unsigned char *can) override { return stream_->get_CanWrite(can); }

  HRESULT WRT_ABI
  ReadAsync(abi::IBuffer *buffer, unsigned count, int options,
            abi::IAsyncOperationWithProgress__2_WRTIBuffer_P_WRTUINT32 **result) override {
    return forward<abi::IInputStream>(
        [&](auto *input) { return input->ReadAsync(buffer, count, options, result); });
  }
  HRESULT WRT_ABI
  WriteAsync(abi::IBuffer *buffer,
             abi::IAsyncOperationWithProgress__2_WRTUINT32_WRTUINT32 **result) override {
    return forward<abi::IOutputStream>(
        [&](auto *output) { return output->WriteAsync(buffer, result); });
  }
  HRESULT WRT_ABI FlushAsync(abi::IAsyncOperation__1_WRTbool **result) override {
    return forward<abi::IOutputStream>([&](auto *output) { return output->FlushAsync(result); });
  }
  HRESULT WRT_ABI Close() override {
    return forward<abi::IClosable>([](auto *closable) { return closable->Close(); });
  }

private:
  template <class Interface, class Call>
  HRESULT forward(Call call) {
    const auto interface = stream_.as<Interface>();
    return interface ? call(interface.get()) : status::kNoInterface;
  }

  const ComPtr<abi::IRandomAccessStream> stream_;
  const StringHolder contentType_;
};

} // namespace

ComPtr<abi::IRandomAccessStreamWithContentType> withContentType(abi::IRandomAccessStream *stream,
                                                                std::u16string_view contentType) {
  return make<TypedStream>(stream, contentType);
}

} // namespace wrt::components
