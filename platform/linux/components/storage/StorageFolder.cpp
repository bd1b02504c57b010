#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/components/storage/FileQuery.h"
#include "platform/linux/components/storage/StorageItem.h"

namespace wrt::components {
namespace {

constexpr std::u16string_view kName = u"Windows.Storage.StorageFolder";
constexpr uint32_t kAll = UINT32_MAX;

using FileOperation = abi::IAsyncOperation__1_WRTStorageFile_P;
using FolderOperation = abi::IAsyncOperation__1_WRTStorageFolder_P;
using ItemOperation = abi::IAsyncOperation__1_WRTIStorageItem_P;
using FilesOperation = abi::IAsyncOperation__1_WRTIVectorView__1_WRTStorageFile_P_P;
using FoldersOperation = abi::IAsyncOperation__1_WRTIVectorView__1_WRTStorageFolder_P_P;
using ItemsOperation = abi::IAsyncOperation__1_WRTIVectorView__1_WRTIStorageItem_P_P;

/// Making and finding items.
class FolderItems : public StorageItem<abi::IStorageFolder, abi::IStorageFolderQueryOperations,
                                       abi::IStorageFolder2> {
public:
  using StorageItem::StorageItem;

  HRESULT WRT_ABI CreateFileAsyncOverloadDefaultOptions(HSTRING name,
                                                        FileOperation **result) override {
    return CreateFileAsync(name, static_cast<int>(Collision::kFail), result);
  }
  HRESULT WRT_ABI CreateFileAsync(HSTRING name, int option, FileOperation **result) override {
    return create<FileRef, ItemKind::kFile>(name, option, result, makeFile);
  }
  HRESULT WRT_ABI CreateFolderAsyncOverloadDefaultOptions(HSTRING name,
                                                          FolderOperation **result) override {
    return CreateFolderAsync(name, static_cast<int>(Collision::kFail), result);
  }
  HRESULT WRT_ABI CreateFolderAsync(HSTRING name, int option, FolderOperation **result) override {
    return create<FolderRef, ItemKind::kFolder>(name, option, result, makeFolder);
  }

  HRESULT WRT_ABI GetFileAsync(HSTRING name, FileOperation **result) override {
    return get<FileRef>(name, result, openFile);
  }
  HRESULT WRT_ABI GetFolderAsync(HSTRING name, FolderOperation **result) override {
    return get<FolderRef>(name, result, openFolder);
  }
  HRESULT WRT_ABI GetItemAsync(HSTRING name, ItemOperation **result) override {
    return get<ItemRef>(name, result, openItem);
  }
  HRESULT WRT_ABI TryGetItemAsync(HSTRING name, ItemOperation **result) override {
    return get<ItemRef>(name, result, [](const Path &path, ComPtr<abi::IStorageItem> &item) {
      const HRESULT status = openItem(path, item);
      return status == kFileNotFound || status == kPathNotFound ? status::kOk : status;
    });
  }

private:
  template <class T, ItemKind kind, class Operation, class Make>
  HRESULT create(HSTRING name, int option, Operation **result, Make makeItem) {
    if (!isItemName(viewOf(name)) || option < 0 || option > WRTCreationCollisionOptionOpenIfExists)
      return refuse(result);
    return startAsync<T>(result, [path = path() / toPath(viewOf(name)), option,
                                  makeItem](const Work<> &, Stored<T> &item) mutable {
      const HRESULT status = createItem(&path, kind, static_cast<Collision>(option));
      if (status >= 0)
        item = makeItem(path);
      return status;
    });
  }

  template <class T, class Operation, class Open>
  HRESULT get(HSTRING name, Operation **result, Open open) {
    if (!isItemName(viewOf(name)))
      return refuse(result);
    return answerAsync<T>(
        result, [&](Stored<T> &item) { return open(path() / toPath(viewOf(name)), item); });
  }
};

/// Adds lists and queries.
class StorageFolder final : public FolderItems {
public:
  using FolderItems::FolderItems;

  HRESULT WRT_ABI
  GetFilesAsyncOverloadDefaultOptionsStartAndCount(FilesOperation **result) override {
    return GetFilesAsync(WRTCommonFileQueryDefaultQuery, 0, kAll, result);
  }
  HRESULT WRT_ABI GetFilesAsyncOverloadDefaultStartAndCount(int query,
                                                            FilesOperation **result) override {
    return GetFilesAsync(query, 0, kAll, result);
  }
  HRESULT WRT_ABI GetFilesAsync(int query, unsigned start, unsigned count,
                                FilesOperation **result) override {
    FileQuery wanted;
    if (!isFileOrder(query, &wanted.order))
      return refuse(result);
    return startAsync<FileListRef>(result, [path = path(), wanted, start, count](
                                               const Work<> &, ComPtr<IVectorView<FileRef>> &list) {
      std::vector<Listed> files;
      const HRESULT status = findFiles(path, wanted, &files);
      if (status >= 0)
        list = makeList<FileRef>(files, start, count,
                                 [](Listed &file) { return makeFile(std::move(file.path)); });
      return status;
    });
  }

  HRESULT WRT_ABI
  GetFoldersAsyncOverloadDefaultOptionsStartAndCount(FoldersOperation **result) override {
    return GetFoldersAsync(WRTCommonFolderQueryDefaultQuery, 0, kAll, result);
  }
  HRESULT WRT_ABI GetFoldersAsyncOverloadDefaultStartAndCount(int query,
                                                              FoldersOperation **result) override {
    return GetFoldersAsync(query, 0, kAll, result);
  }
  HRESULT WRT_ABI GetFoldersAsync(int query, unsigned start, unsigned count,
                                  FoldersOperation **result) override {
    if (query != WRTCommonFolderQueryDefaultQuery)
      return refuse(result);
    return startAsync<FolderListRef>(
        result,
        [path = path(), start, count](const Work<> &, ComPtr<IVectorView<FolderRef>> &list) {
          std::vector<Listed> items;
          const HRESULT status = listFolder(path, &items);
          std::erase_if(items, [](const Listed &item) { return item.kind != ItemKind::kFolder; });
          if (status >= 0)
            list = makeList<FolderRef>(
                items, start, count, [](Listed &item) { return makeFolder(std::move(item.path)); });
          return status;
        });
  }

  HRESULT WRT_ABI GetItemsAsyncOverloadDefaultStartAndCount(ItemsOperation **result) override {
    return GetItemsAsync(0, kAll, result);
  }
  HRESULT WRT_ABI GetItemsAsync(unsigned start, unsigned count, ItemsOperation **result) override {
    return startAsync<ItemListRef>(
        result, [path = path(), start, count](const Work<> &, ComPtr<IVectorView<ItemRef>> &list) {
          std::vector<Listed> items;
          const HRESULT status = listFolder(path, &items);
          if (status >= 0)
            list = makeList<ItemRef>(items, start, count, [](const Listed &item) {
              return item.kind == ItemKind::kFile ? makeFile(item.path).as<abi::IStorageItem>()
                                                  : makeFolder(item.path).as<abi::IStorageItem>();
            });
          return status;
        });
  }

  using FileResult = abi::IStorageFileQueryResult;
  HRESULT WRT_ABI CreateFileQueryOverloadDefault(FileResult **result) override {
    return CreateFileQuery(0, result);
  }
  HRESULT WRT_ABI CreateFileQuery(int query, FileResult **result) override {
    FileQuery wanted;
    if (!isFileOrder(query, &wanted.order))
      return refuse(result);
    return makeFileQueryResult(path(), makeQueryOptions(wanted)).copyTo(result);
  }
  HRESULT WRT_ABI CreateFileQueryWithOptions(abi::IQueryOptions *options,
                                             FileResult **result) override {
    FileQuery wanted;
    if (queryOf(options, &wanted) < 0)
      return refuse(result);
    return makeFileQueryResult(path(), ComPtr(options)).copyTo(result);
  }
  HRESULT WRT_ABI AreQueryOptionsSupported(abi::IQueryOptions *options,
                                           unsigned char *supported) override {
    FileQuery wanted;
    return answer(queryOf(options, &wanted) >= 0, supported);
  }
  HRESULT WRT_ABI IsCommonFileQuerySupported(int query, unsigned char *supported) override {
    FileOrder order;
    return answer(isFileOrder(query, &order), supported);
  }
  HRESULT WRT_ABI IsCommonFolderQuerySupported(int query, unsigned char *supported) override {
    return answer(query == WRTCommonFolderQueryDefaultQuery, supported);
  }
  HRESULT WRT_ABI GetIndexedStateAsync(abi::IAsyncOperation__1_WRTIndexedState **result) override {
    return completedAsync<types::IndexedState>(result, WRTIndexedStateNotIndexed);
  }

  // Their results have no members that could be called.
  HRESULT WRT_ABI CreateFolderQueryOverloadDefault(abi::IStorageFolderQueryResult **r) override {
    return notImplemented(r);
  }
  HRESULT WRT_ABI CreateFolderQuery(int, abi::IStorageFolderQueryResult **r) override {
    return notImplemented(r);
  }
  HRESULT WRT_ABI CreateFolderQueryWithOptions(abi::IQueryOptions *,
                                               abi::IStorageFolderQueryResult **r) override {
    return notImplemented(r);
  }
  HRESULT WRT_ABI CreateItemQuery(abi::IStorageItemQueryResult **r) override {
    return notImplemented(r);
  }
  HRESULT WRT_ABI CreateItemQueryWithOptions(abi::IQueryOptions *,
                                             abi::IStorageItemQueryResult **r) override {
    return notImplemented(r);
  }

private:
  std::u16string_view runtimeClassName() const override { return kName; }

  static HRESULT answer(bool yes, unsigned char *result) {
    if (result == nullptr)
      return status::kPointer;
    *result = yes;
    return status::kOk;
  }
};

class FolderFactory final : public ActivationFactory<abi::IStorageFolderStatics> {
public:
  HRESULT WRT_ABI GetFolderFromPathAsync(HSTRING path, FolderOperation **result) override {
    return answerAsync<FolderRef>(result, [&](ComPtr<abi::IStorageFolder> &folder) {
      // Without the slash at its end, so that the folder has a name.
      Path wanted = withoutDots(toPath(viewOf(path)));
      if (!wanted.has_filename() && wanted.has_relative_path())
        wanted = wanted.parent_path();
      return openFolder(wanted, folder);
    });
  }

private:
  std::u16string_view runtimeClassName() const override { return kName; }
};

const activation::Registration registration(kName, activation::makeFactory<FolderFactory>);

} // namespace

ComPtr<abi::IStorageFolder> makeFolder(Path path) { return make<StorageFolder>(std::move(path)); }

} // namespace wrt::components
