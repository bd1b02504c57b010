#include "platform/linux/components/storage/FileQuery.h"
#include "platform/linux/implement/EventSource.h"

#include <abi/TypedEventHandler.abi.h>

namespace wrt::components {
namespace {

/// Windows.Storage.Search.StorageFileQueryResult: asks the folder anew each time.
class StorageFileQueryResult final
    : public Implements<abi::IStorageFileQueryResult, abi::IStorageQueryResultBase,
                        abi::IStorageFileQueryResult2> {
public:
  StorageFileQueryResult(Path folder, ComPtr<abi::IQueryOptions> options)
      : folder_(std::move(folder)), options_(std::move(options)) {}

  using Files = abi::IAsyncOperation__1_WRTIVectorView__1_WRTStorageFile_P_P;
  HRESULT WRT_ABI GetFilesAsync(unsigned start, unsigned count, Files **result) override {
    return startAsync<FileListRef>(result, [folder = folder_, options = options(), start, count](
                                               const Work<> &, ComPtr<IVectorView<FileRef>> &list) {
      std::vector<Listed> files;
      const HRESULT status = find(folder, options, &files);
      if (status >= 0)
        list = makeList<FileRef>(files, start, count,
                                 [](Listed &file) { return makeFile(std::move(file.path)); });
      return status;
    });
  }
  HRESULT WRT_ABI GetFilesAsyncDefaultStartAndCount(Files **result) override {
    return GetFilesAsync(0, UINT32_MAX, result);
  }
  HRESULT WRT_ABI GetItemCountAsync(abi::IAsyncOperation__1_WRTUINT32 **result) override {
    return startAsync<UInt32>(
        result, [folder = folder_, options = options()](const Work<> &, uint32_t &count) {
          std::vector<Listed> files;
          const HRESULT status = find(folder, options, &files);
          count = static_cast<uint32_t>(files.size());
          return status;
        });
  }

  HRESULT WRT_ABI get_Folder(abi::IStorageFolder **folder) override {
    return makeFolder(folder_).copyTo(folder);
  }
  HRESULT WRT_ABI GetCurrentQueryOptions(abi::IQueryOptions **result) override {
    return options().copyTo(result);
  }
  HRESULT WRT_ABI ApplyNewQueryOptions(abi::IQueryOptions *options) override {
    FileQuery query;
    if (const HRESULT status = queryOf(options, &query); status < 0)
      return status;
    {
      std::lock_guard lock(mutex_);
      options_ = ComPtr(options);
    }
    optionsChanged_.raise(static_cast<abi::IStorageQueryResultBase *>(this), nullptr);
    return contentsChanged_.raise(static_cast<abi::IStorageQueryResultBase *>(this), nullptr);
  }

  // Folders are not watched: contents change with the options alone.
  using Handler = abi::TypedEventHandler__2_WRTIStorageQueryResultBase_P_WRTIInspectable_P;
  HRESULT WRT_ABI add_ContentsChanged(Handler *handler, WRTEventRegistrationToken *token) override {
    return contentsChanged_.add(handler, token);
  }
  HRESULT WRT_ABI remove_ContentsChanged(WRTEventRegistrationToken token) override {
    return contentsChanged_.remove(token);
  }
  HRESULT WRT_ABI add_OptionsChanged(Handler *handler, WRTEventRegistrationToken *token) override {
    return optionsChanged_.add(handler, token);
  }
  HRESULT WRT_ABI remove_OptionsChanged(WRTEventRegistrationToken token) override {
    return optionsChanged_.remove(token);
  }

  HRESULT WRT_ABI FindStartIndexAsync(abi::IInspectable *,
                                      abi::IAsyncOperation__1_WRTUINT32 **r) override {
    return notImplemented(r);
  }
  HRESULT WRT_ABI GetMatchingPropertiesWithRanges(
      abi::IStorageFile *,
      abi::IMap__2_WRTHSTRING_WRTIVectorView__1_WRTTextSegment_P **r) override {
    return notImplemented(r);
  }

private:
  std::u16string_view runtimeClassName() const override {
    return u"Windows.Storage.Search.StorageFileQueryResult";
  }

  ComPtr<abi::IQueryOptions> options() const {
    std::lock_guard lock(mutex_);
    return options_;
  }
  static HRESULT find(const Path &folder, const ComPtr<abi::IQueryOptions> &options,
                      std::vector<Listed> *files) {
    FileQuery query;
    const HRESULT status = queryOf(options.get(), &query);
    return status < 0 ? status : findFiles(folder, query, files);
  }

  const Path folder_;
  mutable std::mutex mutex_;
  ComPtr<abi::IQueryOptions> options_;
  EventSource<Handler> contentsChanged_, optionsChanged_;
};

} // namespace

ComPtr<abi::IStorageFileQueryResult> makeFileQueryResult(Path folder,
                                                         ComPtr<abi::IQueryOptions> options) {
  return make<StorageFileQueryResult>(std::move(folder), std::move(options));
}

} // namespace wrt::components
