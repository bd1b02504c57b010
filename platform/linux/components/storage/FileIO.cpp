#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/components/collections/Vector.h"
#include "platform/linux/components/storage/StorageTypes.h"
#include "platform/linux/components/storage/TextFile.h"
#include "platform/linux/implement/StringHolder.h"

#include <abi/IIterable.abi.h>

namespace wrt::components {
namespace {

/// Windows.Storage.FileIO. Files are taken by their path, so that any implementation of a file
/// will do that has one.
class FileIO final : public ActivationFactory<abi::IFileIOStatics> {
public:
  using TextOperation = abi::IAsyncOperation__1_WRTHSTRING;
  HRESULT WRT_ABI ReadTextAsync(abi::IStorageFile *file, TextOperation **result) override {
    return read(file, std::nullopt, result);
  }
  HRESULT WRT_ABI ReadTextWithEncodingAsync(abi::IStorageFile *file, int encoding,
                                            TextOperation **result) override {
    return isEncoding(encoding) ? read(file, static_cast<TextEncoding>(encoding), result)
                                : refuse(result);
  }

  using Action = abi::IAsyncAction;
  HRESULT WRT_ABI WriteTextAsync(abi::IStorageFile *file, HSTRING text, Action **result) override {
    return write(file, text, 0, false, result);
  }
  HRESULT WRT_ABI WriteTextWithEncodingAsync(abi::IStorageFile *file, HSTRING text, int encoding,
                                             Action **result) override {
    return write(file, text, encoding, false, result);
  }
  HRESULT WRT_ABI AppendTextAsync(abi::IStorageFile *file, HSTRING text, Action **result) override {
    return write(file, text, 0, true, result);
  }
  HRESULT WRT_ABI AppendTextWithEncodingAsync(abi::IStorageFile *file, HSTRING text, int encoding,
                                              Action **result) override {
    return write(file, text, encoding, true, result);
  }

  using LinesOperation = abi::IAsyncOperation__1_WRTIVector__1_WRTHSTRING_P;
  HRESULT WRT_ABI ReadLinesAsync(abi::IStorageFile *file, LinesOperation **result) override {
    return readLines(file, std::nullopt, result);
  }
  HRESULT WRT_ABI ReadLinesWithEncodingAsync(abi::IStorageFile *file, int encoding,
                                             LinesOperation **result) override {
    return isEncoding(encoding) ? readLines(file, static_cast<TextEncoding>(encoding), result)
                                : refuse(result);
  }
  HRESULT WRT_ABI WriteLinesAsync(abi::IStorageFile *file, abi::IIterable__1_WRTHSTRING *lines,
                                  Action **result) override {
    return writeLines(file, lines, 0, false, result);
  }
  HRESULT WRT_ABI WriteLinesWithEncodingAsync(abi::IStorageFile *file,
                                              abi::IIterable__1_WRTHSTRING *lines, int encoding,
                                              Action **result) override {
    return writeLines(file, lines, encoding, false, result);
  }
  HRESULT WRT_ABI AppendLinesAsync(abi::IStorageFile *file, abi::IIterable__1_WRTHSTRING *lines,
                                   Action **result) override {
    return writeLines(file, lines, 0, true, result);
  }
  HRESULT WRT_ABI AppendLinesWithEncodingAsync(abi::IStorageFile *file,
                                               abi::IIterable__1_WRTHSTRING *lines, int encoding,
                                               Action **result) override {
    return writeLines(file, lines, encoding, true, result);
  }

  HRESULT WRT_ABI ReadBufferAsync(abi::IStorageFile *file,
                                  abi::IAsyncOperation__1_WRTIBuffer_P **result) override {
    Path path;
    if (pathOf(file, &path) < 0)
      return refuse(result);
    return startAsync<BufferRef>(result, [path](const Work<> &, ComPtr<abi::IBuffer> &buffer) {
      std::string bytes;
      if (const HRESULT status = readFile(path, &bytes); status < 0)
        return status;
      if (bytes.size() > UINT32_MAX)
        return kFileTooLarge;
      buffer = makeBuffer(static_cast<uint32_t>(bytes.size()));
      if (!buffer)
        return status::kOutOfMemory;
      std::span<uint8_t> room;
      roomOf(buffer.get(), &room);
      std::ranges::copy(bytes, room.begin());
      return buffer->put_Length(static_cast<uint32_t>(bytes.size()));
    });
  }
  HRESULT WRT_ABI WriteBufferAsync(abi::IStorageFile *file, abi::IBuffer *buffer,
                                   Action **result) override {
    std::span<const uint8_t> content;
    if (contentOf(buffer, &content) < 0)
      return refuse(result);
    return writeBytes(file, content, result);
  }
  HRESULT WRT_ABI WriteBytesAsync(abi::IStorageFile *file, unsigned count, unsigned char *bytes,
                                  Action **result) override {
    if (bytes == nullptr && count != 0)
      return refuse(result);
    return writeBytes(file, {bytes, count}, result);
  }

private:
  std::u16string_view runtimeClassName() const override { return u"Windows.Storage.FileIO"; }

  template <class Result>
  static HRESULT refuse(Result **result) {
    if (result == nullptr)
      return status::kPointer;
    *result = nullptr;
    return status::kInvalidArgument;
  }
  static bool isEncoding(int encoding) {
    return encoding >= 0 && encoding <= WRTUnicodeEncodingUtf16BE;
  }

  static HRESULT read(abi::IStorageFile *file, std::optional<TextEncoding> encoding,
                      TextOperation **result) {
    Path path;
    if (pathOf(file, &path) < 0)
      return refuse(result);
    return startAsync<String>(result, [path, encoding](const Work<> &, StringHolder &contents) {
      std::u16string text;
      const HRESULT status = readText(path, encoding, &text);
      contents = StringHolder(text);
      return status;
    });
  }

  static HRESULT readLines(abi::IStorageFile *file, std::optional<TextEncoding> encoding,
                           LinesOperation **result) {
    Path path;
    if (pathOf(file, &path) < 0)
      return refuse(result);
    return startAsync<Ref<IVector<String>>>(
        result, [path, encoding](const Work<> &, ComPtr<IVector<String>> &lines) {
          std::u16string text;
          const HRESULT status = readText(path, encoding, &text);
          const auto split = splitLines(text);
          if (status >= 0)
            lines = make<Vector<String>>(Items<String>(split.begin(), split.end()));
          return status;
        });
  }

  static HRESULT write(abi::IStorageFile *file, HSTRING text, int encoding, bool append,
                       Action **result) {
    return write(file, std::u16string(viewOf(text)), encoding, append, result);
  }
  static HRESULT write(abi::IStorageFile *file, std::u16string text, int encoding, bool append,
                       Action **result) {
    Path path;
    if (pathOf(file, &path) < 0 || !isEncoding(encoding))
      return refuse(result);
    return startAsync(result, [path, text = std::move(text), encoding, append](const Work<> &) {
      return writeText(path, static_cast<TextEncoding>(encoding), text, append);
    });
  }

  static HRESULT writeLines(abi::IStorageFile *file, abi::IIterable__1_WRTHSTRING *declared,
                            int encoding, bool append, Action **result) {
    if (declared == nullptr)
      return refuse(result);
    ComPtr<IIterator<String>> iterator;
    uint8_t has = 0;
    HRESULT status = interfaceCast<IIterable<String>>(declared)->First(iterator.put());
    if (status >= 0)
      status = iterator->get_HasCurrent(&has);
    std::u16string text;
    while (status >= 0 && has != 0) {
      StringHolder line;
      status = iterator->get_Current(line.put());
      (text += line.view()) += u"\r\n";
      if (status >= 0)
        status = iterator->MoveNext(&has);
    }
    return status < 0 ? status : write(file, std::move(text), encoding, append, result);
  }

  static HRESULT writeBytes(abi::IStorageFile *file, std::span<const uint8_t> content,
                            Action **result) {
    Path path;
    if (pathOf(file, &path) < 0)
      return refuse(result);
    return startAsync(result, [path, bytes = std::string(content.begin(), content.end())](
                                  const Work<> &) { return writeFile(path, bytes, false); });
  }
};

const activation::Registration registration(u"Windows.Storage.FileIO",
                                            activation::makeFactory<FileIO>);

} // namespace
} // namespace wrt::components
