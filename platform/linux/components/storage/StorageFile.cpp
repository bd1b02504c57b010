#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/components/storage/StorageItem.h"
#include "platform/linux/components/streams/RandomAccessStream.h"

namespace wrt::components {
namespace {

constexpr std::u16string_view kName = u"Windows.Storage.StorageFile";

HRESULT openStream(const Path &path, FileStore::Access access,
                   ComPtr<abi::IRandomAccessStream> &stream) {
  std::shared_ptr<ByteStore> store;
  const HRESULT status = FileStore::open(path, access, &store);
  if (status >= 0)
    stream = make<RandomAccessStream>(std::move(store),
                                      u"Windows.Storage.Streams.FileRandomAccessStream");
  return status;
}

class StorageFile final
    : public StorageItem<abi::IStorageFile, abi::IInputStreamReference,
                         abi::IRandomAccessStreamReference,
                         abi::IStorageFilePropertiesWithAvailability, abi::IStorageFile2> {
public:
  using StorageItem::StorageItem;

  HRESULT WRT_ABI get_FileType(HSTRING *type) override { return text(path().extension(), type); }
  HRESULT WRT_ABI get_ContentType(HSTRING *type) override {
    return type == nullptr ? status::kPointer : makeString(contentTypeOf(path()), type);
  }
  HRESULT WRT_ABI get_IsAvailable(unsigned char *available) override {
    if (available == nullptr)
      return status::kPointer;
    *available = 1;
    return status::kOk;
  }

  using Opening = abi::IAsyncOperation__1_WRTIRandomAccessStream_P;
  HRESULT WRT_ABI OpenAsync(int mode, Opening **result) override {
    if (mode != WRTFileAccessModeRead && mode != WRTFileAccessModeReadWrite)
      return refuse(result);
    const auto access =
        mode == WRTFileAccessModeRead ? FileStore::Access::kRead : FileStore::Access::kReadWrite;
    return startAsync<StreamRef>(
        result, [path = path(), access](const Work<> &, ComPtr<abi::IRandomAccessStream> &stream) {
          return openStream(path, access, stream);
        });
  }
  HRESULT WRT_ABI OpenWithOptionsAsync(int mode, int /*options*/, Opening **result) override {
    return OpenAsync(mode, result);
  }
  HRESULT WRT_ABI
  OpenReadAsync(abi::IAsyncOperation__1_WRTIRandomAccessStreamWithContentType_P **result) override {
    return startAsync<TypedStreamRef>(
        result,
        [path = path()](const Work<> &, ComPtr<abi::IRandomAccessStreamWithContentType> &opened) {
          ComPtr<abi::IRandomAccessStream> stream;
          const HRESULT status = openStream(path, FileStore::Access::kRead, stream);
          if (status >= 0)
            opened = withContentType(stream.get(), contentTypeOf(path));
          return status;
        });
  }
  HRESULT WRT_ABI
  OpenSequentialReadAsync(abi::IAsyncOperation__1_WRTIInputStream_P **result) override {
    return startAsync<InputStreamRef>(
        result, [path = path()](const Work<> &, ComPtr<abi::IInputStream> &input) {
          ComPtr<abi::IRandomAccessStream> stream;
          const HRESULT status = openStream(path, FileStore::Access::kRead, stream);
          if (status >= 0)
            input = stream.as<abi::IInputStream>();
          return status;
        });
  }
  using Transaction = abi::IAsyncOperation__1_WRTStorageStreamTransaction_P;
  HRESULT WRT_ABI OpenTransactedWriteAsync(Transaction **result) override {
    return notImplemented(result);
  }
  HRESULT WRT_ABI OpenTransactedWriteWithOptionsAsync(int, Transaction **result) override {
    return notImplemented(result);
  }

  using Copying = abi::IAsyncOperation__1_WRTStorageFile_P;
  HRESULT WRT_ABI CopyOverloadDefaultNameAndOptions(abi::IStorageFolder *folder,
                                                    Copying **result) override {
    return copyTo(folder, path().filename(), Collision::kFail, result);
  }
  HRESULT WRT_ABI CopyOverloadDefaultOptions(abi::IStorageFolder *folder, HSTRING name,
                                             Copying **result) override {
    return CopyOverload(folder, name, static_cast<int>(Collision::kFail), result);
  }
  HRESULT WRT_ABI CopyOverload(abi::IStorageFolder *folder, HSTRING name, int option,
                               Copying **result) override {
    if (!isItemName(viewOf(name)))
      return refuse(result);
    return copyTo(folder, toPath(viewOf(name)), static_cast<Collision>(option), result);
  }
  HRESULT WRT_ABI CopyAndReplaceAsync(abi::IStorageFile *file,
                                      abi::IAsyncAction **result) override {
    Path target;
    if (pathOf(file, &target) < 0)
      return refuse(result);
    return startAsync(result, [from = path(), to = target](const Work<> &) mutable {
      return copyFile(from, &to, Collision::kReplace);
    });
  }

  HRESULT WRT_ABI MoveOverloadDefaultNameAndOptions(abi::IStorageFolder *folder,
                                                    abi::IAsyncAction **result) override {
    return moveInto(folder, path().filename(), Collision::kFail, result);
  }
  HRESULT WRT_ABI MoveOverloadDefaultOptions(abi::IStorageFolder *folder, HSTRING name,
                                             abi::IAsyncAction **result) override {
    return MoveOverload(folder, name, static_cast<int>(Collision::kFail), result);
  }
  HRESULT WRT_ABI MoveOverload(abi::IStorageFolder *folder, HSTRING name, int option,
                               abi::IAsyncAction **result) override {
    if (!isItemName(viewOf(name)))
      return refuse(result);
    return moveInto(folder, toPath(viewOf(name)), static_cast<Collision>(option), result);
  }
  HRESULT WRT_ABI MoveAndReplaceAsync(abi::IStorageFile *file,
                                      abi::IAsyncAction **result) override {
    Path target;
    if (pathOf(file, &target) < 0)
      return refuse(result);
    return moveTo(target, static_cast<int>(Collision::kReplace), result);
  }

private:
  std::u16string_view runtimeClassName() const override { return kName; }

  HRESULT copyTo(abi::IStorageFolder *folder, const Path &name, Collision collision,
                 Copying **result) {
    Path target;
    if (pathOf(folder, &target) < 0)
      return refuse(result);
    return startAsync<FileRef>(result,
                               [from = path(), to = target / name, collision](
                                   const Work<> &, ComPtr<abi::IStorageFile> &copy) mutable {
                                 const HRESULT status = copyFile(from, &to, collision);
                                 if (status >= 0)
                                   copy = makeFile(to);
                                 return status;
                               });
  }
  HRESULT moveInto(abi::IStorageFolder *folder, const Path &name, Collision collision,
                   abi::IAsyncAction **result) {
    Path target;
    if (pathOf(folder, &target) < 0)
      return refuse(result);
    return moveTo(target / name, static_cast<int>(collision), result);
  }
};

class FileFactory final : public ActivationFactory<abi::IStorageFileStatics> {
public:
  using Result = abi::IAsyncOperation__1_WRTStorageFile_P;

  HRESULT WRT_ABI GetFileFromPathAsync(HSTRING path, Result **result) override {
    return answerAsync<FileRef>(result, [&](ComPtr<abi::IStorageFile> &file) {
      return openFile(withoutDots(toPath(viewOf(path))), file);
    });
  }

  // Files that an application makes up as they are read, and files of its package.
  HRESULT WRT_ABI GetFileFromApplicationUriAsync(abi::IUriRuntimeClass *, Result **r) override {
    return notImplemented(r);
  }
  HRESULT WRT_ABI CreateStreamedFileAsync(HSTRING, abi::StreamedFileDataRequestedHandler *,
                                          abi::IRandomAccessStreamReference *,
                                          Result **r) override {
    return notImplemented(r);
  }
  HRESULT WRT_ABI ReplaceWithStreamedFileAsync(abi::IStorageFile *,
                                               abi::StreamedFileDataRequestedHandler *,
                                               abi::IRandomAccessStreamReference *,
                                               Result **r) override {
    return notImplemented(r);
  }
  HRESULT WRT_ABI CreateStreamedFileFromUriAsync(HSTRING, abi::IUriRuntimeClass *,
                                                 abi::IRandomAccessStreamReference *,
                                                 Result **r) override {
    return notImplemented(r);
  }
  HRESULT WRT_ABI ReplaceWithStreamedFileFromUriAsync(abi::IStorageFile *, abi::IUriRuntimeClass *,
                                                      abi::IRandomAccessStreamReference *,
                                                      Result **r) override {
    return notImplemented(r);
  }

private:
  std::u16string_view runtimeClassName() const override { return kName; }
};

const activation::Registration registration(kName, activation::makeFactory<FileFactory>);

} // namespace

ComPtr<abi::IStorageFile> makeFile(Path path) { return make<StorageFile>(std::move(path)); }

} // namespace wrt::components
