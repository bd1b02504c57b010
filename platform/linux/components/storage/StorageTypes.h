/// What storage classes have in common: their results, and where an object's file or folder is.
#ifndef WRT_STORAGE_TYPES_H
#define WRT_STORAGE_TYPES_H

#include "platform/linux/components/async/AsyncOperation.h"
#include "platform/linux/components/collections/VectorView.h"
#include "platform/linux/components/foundation/Text.h"
#include "platform/linux/components/storage/FileStatus.h"
#include "platform/linux/components/storage/FileSystem.h"
#include "platform/linux/components/streams/StreamTypes.h"
#include "platform/linux/implement/Implements.h"

#include <abi/IVectorView.abi.h>
#include <abi/Windows.Foundation.abi.h>
#include <abi/Windows.Storage.FileProperties.abi.h>
#include <abi/Windows.Storage.Search.abi.h>
#include <abi/Windows.Storage.abi.h>

namespace wrt::components {

using FileRef = types::StorageFile;
using FolderRef = types::StorageFolder;
using ItemRef = Ref<abi::IStorageItem>;
using FileListRef = Ref<IVectorView<FileRef>>;
using FolderListRef = Ref<IVectorView<FolderRef>>;
using ItemListRef = Ref<IVectorView<ItemRef>>;

/// Objects for a file or folder that is known to be there; nothing is asked of the file system.
ComPtr<abi::IStorageFile> makeFile(Path path);
ComPtr<abi::IStorageFolder> makeFolder(Path path);
ComPtr<abi::IBasicProperties> makeBasicProperties(const ItemFacts &facts);

/// The file or folder at `path`, which must be one, as an object.
HRESULT openFile(const Path &path, ComPtr<abi::IStorageFile> &file);
HRESULT openFolder(const Path &path, ComPtr<abi::IStorageFolder> &folder);
HRESULT openItem(const Path &path, ComPtr<abi::IStorageItem> &item);

/// Where an item (borrowed) is; fails with `E_INVALIDARG` for null and for what is no item.
HRESULT pathOf(abi::IUnknown *item, Path *path);

/// "text/plain" for ".txt"; empty for types that are not known.
std::u16string_view contentTypeOf(const Path &path);

/// Answers a member that there is no implementation of: every result is null.
template <class... Results>
HRESULT notImplemented(Results **...results) {
  ((results != nullptr ? void(*results = nullptr) : void()), ...);
  return status::kNotImplemented;
}

/// The objects for listed items, from `start` on and at most `count`. `make` may take the paths.
template <class T, class Make>
ComPtr<IVectorView<T>> makeList(std::vector<Listed> &listed, uint32_t start, uint32_t count,
                                Make make) {
  Items<T> items;
  if (start < listed.size())
    items.reserve(std::min<size_t>(count, listed.size() - start));
  for (size_t i = start; i < listed.size() && items.size() < count; ++i)
    items.push_back(make(listed[i]));
  return implement::make<VectorView<T>>(std::move(items));
}

} // namespace wrt::components

#endif
