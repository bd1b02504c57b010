#include "tests/storage/ScriptedStream.h"

#include "tests/support/PlatformTrace.h"

#include <WRTBridge.h>

#include <cstring>
#include <dlfcn.h>

namespace wrt::test {
namespace {

template <class... Access>
class BareBuffer : public Implements<abi::IBuffer, Access...> {
public:
  HRESULT WRT_ABI get_Capacity(unsigned *) override { return status::kNotImplemented; }
  HRESULT WRT_ABI get_Length(unsigned *) override { return status::kNotImplemented; }
  HRESULT WRT_ABI put_Length(unsigned) override { return status::kNotImplemented; }
};

class FailingBuffer final : public BareBuffer<abi::IBufferByteAccess> {
public:
  explicit FailingBuffer(StreamScript *script = nullptr) : script_(script) {}
  HRESULT WRT_ABI put_Length(unsigned length) override {
    script_->length = length;
    return script_->lengthStatus;
  }
  HRESULT WRT_ABI Buffer(uint8_t **) override { return status::kFail; }

private:
  StreamScript *script_; ///< null where nobody sets the length
};

/// Starts an operation as scripted: not at all, one that takes no handler, or one that ends with
/// `result` on another thread.
template <class Result, class Progress, class Declared, class Work>
HRESULT scripted(Declared **operation, HRESULT start, HRESULT handler, Work work) {
  *operation = nullptr;
  if (start < 0)
    return start;
  if (handler == status::kNoInterface) {
    *operation = reinterpret_cast<Declared *>(makeBareBuffer().detach());
    return status::kOk;
  }
  if (handler >= 0)
    return startAsync<Result, Progress>(operation, std::move(work));
  failedAsync<Result, Progress>(operation, handler);
  return ComPtr(*operation).template as<abi::IAsyncInfo>()->Close(); // takes none any more
}

class ScriptedStream final
    : public Implements<abi::IRandomAccessStreamWithContentType, abi::IRandomAccessStream,
                        abi::IInputStream, abi::IOutputStream, abi::IClosable> {
public:
  explicit ScriptedStream(StreamScript &script) : script_(script) {}

  HRESULT WRT_ABI QueryInterface(const GUID *iid, void **result) override {
    if (script_.sizeStatus != status::kNoInterface || *iid != abi::IRandomAccessStream::kIid)
      return Implements::QueryInterface(iid, result);
    *result = nullptr;
    return status::kNoInterface;
  }
  HRESULT WRT_ABI get_Size(unsigned long long *size) override {
    *size = script_.size;
    return script_.sizeStatus;
  }
  HRESULT WRT_ABI
  ReadAsync(abi::IBuffer *buffer, unsigned count, int options,
            abi::IAsyncOperationWithProgress__2_WRTIBuffer_P_WRTUINT32 **result) override {
    if (!buffer)
      return status::kPointer;
    buffer->get_Capacity(&script_.capacity);
    script_.count = count;
    script_.options = options;
    return scripted<BufferRef, UInt32>(
        result, script_.readStart, script_.readHandler,
        [&script = script_, buffer = ComPtr(buffer)](const Work<UInt32> &,
                                                     ComPtr<abi::IBuffer> &filled) -> HRESULT {
          std::span<uint8_t> room;
          roomOf(buffer.get(), &room);
          std::memset(room.data(), 0x5A, script.delivered);
          buffer->put_Length(script.delivered);
          filled = script.bareBuffer ? makeFailingBuffer() : buffer;
          return script.readResult;
        });
  }
  HRESULT WRT_ABI WriteAsync(
      abi::IBuffer *, abi::IAsyncOperationWithProgress__2_WRTUINT32_WRTUINT32 **result) override {
    return scripted<UInt32, UInt32>(
        result, script_.writeStart, script_.writeHandler,
        [status = script_.writeResult](const Work<UInt32> &, uint32_t &) { return status; });
  }

  HRESULT WRT_ABI put_Size(unsigned long long) override { return status::kNotImplemented; }
  HRESULT WRT_ABI GetInputStreamAt(unsigned long long, abi::IInputStream **) override {
    return status::kNotImplemented;
  }
  HRESULT WRT_ABI GetOutputStreamAt(unsigned long long, abi::IOutputStream **) override {
    return status::kNotImplemented;
  }
  HRESULT WRT_ABI get_Position(unsigned long long *) override { return status::kNotImplemented; }
  HRESULT WRT_ABI Seek(unsigned long long) override { return status::kNotImplemented; }
  HRESULT WRT_ABI CloneStream(abi::IRandomAccessStream **) override {
    return status::kNotImplemented;
  }
  HRESULT WRT_ABI get_CanRead(unsigned char *) override { return status::kNotImplemented; }
  HRESULT WRT_ABI get_CanWrite(unsigned char *) override { return status::kNotImplemented; }
  HRESULT WRT_ABI FlushAsync(abi::IAsyncOperation__1_WRTbool **) override {
    return status::kNotImplemented;
  }
  HRESULT WRT_ABI Close() override { return status::kOk; }

private:
  StreamScript &script_;
};

class ScriptedReference final : public Implements<abi::IRandomAccessStreamReference> {
public:
  explicit ScriptedReference(StreamScript &script) : script_(script) {}

  HRESULT WRT_ABI
  OpenReadAsync(abi::IAsyncOperation__1_WRTIRandomAccessStreamWithContentType_P **result) override {
    return scripted<TypedStreamRef, void>(
        result, script_.openStart, script_.openHandler,
        [&script = script_](const Work<> &,
                            ComPtr<abi::IRandomAccessStreamWithContentType> &stream) {
          stream = make<ScriptedStream>(script);
          return script.openResult;
        });
  }

private:
  StreamScript &script_;
};

StreamScript *active = nullptr;

class StreamFactory final : public ActivationFactory<> {
public:
  HRESULT WRT_ABI ActivateInstance(abi::IInspectable **instance) override {
    *instance = make<ScriptedStream>(*active).detach()->identity();
    return status::kOk;
  }
};

class ReferenceFactory final : public ActivationFactory<abi::IRandomAccessStreamReferenceStatics> {
public:
  HRESULT WRT_ABI CreateFromFile(abi::IStorageFile *,
                                 abi::IRandomAccessStreamReference **) override {
    return status::kNotImplemented;
  }
  HRESULT WRT_ABI CreateFromUri(abi::IUriRuntimeClass *,
                                abi::IRandomAccessStreamReference **) override {
    return status::kNotImplemented;
  }
  HRESULT WRT_ABI CreateFromStream(abi::IRandomAccessStream *,
                                   abi::IRandomAccessStreamReference **result) override {
    if (active->referenceStatus >= 0)
      *result = makeReference(*active).detach();
    return active->referenceStatus;
  }
};

} // namespace

ActiveScript::ActiveScript(StreamScript &script)
    : streams_(u"Windows.Storage.Streams.InMemoryRandomAccessStream",
               activation::makeFactory<StreamFactory>),
      references_(u"Windows.Storage.Streams.RandomAccessStreamReference",
                  activation::makeFactory<ReferenceFactory>) {
  active = &script;
}

ActiveScript::~ActiveScript() { active = nullptr; }

ComPtr<abi::IRandomAccessStreamReference> makeReference(StreamScript &script) {
  return make<ScriptedReference>(script);
}
ComPtr<abi::IBuffer> makeBareBuffer() { return make<BareBuffer<>>(); }
ComPtr<abi::IBuffer> makeFailingBuffer() { return make<FailingBuffer>(); }

} // namespace wrt::test

// Stands in front of the platform's.
extern "C" void *WRTCreateBufferWrappingBytes(void *bytes, uint32_t length) {
  using namespace wrt::test;
  static auto *forward = reinterpret_cast<decltype(&WRTCreateBufferWrappingBytes)>(
      dlsym(RTLD_NEXT, "WRTCreateBufferWrappingBytes"));
  if (strikeOf("WRTCreateBufferWrappingBytes", __builtin_return_address(0)) != Strike::None)
    return nullptr;
  if (!active)
    return forward(bytes, length);
  active->written = static_cast<const uint8_t *>(bytes);
  return make<FailingBuffer>(active).detach();
}
