#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/components/async/AsyncOperation.h"
#include "platform/linux/components/streams/RandomAccessStream.h"

namespace wrt::components {
namespace {

constexpr std::u16string_view kName = u"Windows.Storage.Streams.RandomAccessStreamReference";
constexpr char16_t kUnknownType[] = u"application/octet-stream";

/// A reference to a stream that is there already: each opening is a clone of it, at its start.
class StreamReference final : public Implements<abi::IRandomAccessStreamReference> {
public:
  explicit StreamReference(abi::IRandomAccessStream *stream) : stream_(stream) {}

  HRESULT WRT_ABI
  OpenReadAsync(abi::IAsyncOperation__1_WRTIRandomAccessStreamWithContentType_P **result) override {
    return startAsync<TypedStreamRef>(
        result, [stream = stream_](const Work<> &,
                                   ComPtr<abi::IRandomAccessStreamWithContentType> &opened) {
          ComPtr<abi::IRandomAccessStream> clone;
          const HRESULT status = stream->CloneStream(clone.put());
          if (status >= 0)
            opened = withContentType(clone.get(), kUnknownType);
          return status;
        });
  }

private:
  std::u16string_view runtimeClassName() const override { return kName; }

  const ComPtr<abi::IRandomAccessStream> stream_;
};

/// A reference to whatever can be opened, such as a file.
class ForwardingReference final : public Implements<abi::IRandomAccessStreamReference> {
public:
  explicit ForwardingReference(ComPtr<abi::IRandomAccessStreamReference> source)
      : source_(std::move(source)) {}

  HRESULT WRT_ABI
  OpenReadAsync(abi::IAsyncOperation__1_WRTIRandomAccessStreamWithContentType_P **result) override {
    return source_->OpenReadAsync(result);
  }

private:
  std::u16string_view runtimeClassName() const override { return kName; }

  const ComPtr<abi::IRandomAccessStreamReference> source_;
};

class ReferenceFactory final : public ActivationFactory<abi::IRandomAccessStreamReferenceStatics> {
public:
  HRESULT WRT_ABI CreateFromFile(abi::IStorageFile *file,
                                 abi::IRandomAccessStreamReference **result) override {
    if (result == nullptr)
      return status::kPointer;
    *result = nullptr;
    // The declaration of a file is its own affair: all that counts is that it can be opened.
    const ComPtr unknown(reinterpret_cast<abi::IUnknown *>(file));
    auto source = unknown.as<abi::IRandomAccessStreamReference>();
    if (!source)
      return status::kInvalidArgument;
    return makeInto<ForwardingReference>(result, std::move(source));
  }

  HRESULT WRT_ABI CreateFromUri(abi::IUriRuntimeClass *,
                                abi::IRandomAccessStreamReference **result) override {
    if (result == nullptr)
      return status::kPointer;
    *result = nullptr;
    return status::kNotImplemented; // there is no network
  }

  HRESULT WRT_ABI CreateFromStream(abi::IRandomAccessStream *stream,
                                   abi::IRandomAccessStreamReference **result) override {
    if (result == nullptr)
      return status::kPointer;
    *result = nullptr;
    if (stream == nullptr)
      return status::kInvalidArgument;
    return makeInto<StreamReference>(result, stream);
  }

private:
  std::u16string_view runtimeClassName() const override { return kName; }
};

const activation::Registration registration(kName, activation::makeFactory<ReferenceFactory>);

} // namespace
} // namespace wrt::components
