#ifndef WRT_STORAGE_ITEM_H
#define WRT_STORAGE_ITEM_H

#include "platform/linux/components/storage/StorageTypes.h"
#include "platform/linux/implement/StringHolder.h"

#include <algorithm>

namespace wrt::components {

/// The path of an item's object, which renaming and moving change.
class ItemPath {
public:
  explicit ItemPath(Path path) : path_(std::move(path)) {}
  Path get() const {
    std::lock_guard lock(mutex_);
    return path_;
  }
  /// Answers from the path without a copy of it; `use` runs under the lock.
  template <class Use>
  auto with(Use use) const {
    std::lock_guard lock(mutex_);
    return use(path_);
  }
  void set(Path path) {
    std::lock_guard lock(mutex_);
    path_ = std::move(path);
  }

private:
  mutable std::mutex mutex_;
  Path path_;
};

/// The members that files and folders share. Nothing is remembered of the item but its path, so
/// that each question meets the file system as it is then.
template <class Default, class... Others>
class StorageItem : public Implements<Default, abi::IStorageItem, abi::IStorageItemProperties,
                                      abi::IStorageItemProperties2, abi::IStorageItem2,
                                      abi::IStorageItemPropertiesWithProvider, Others...> {
public:
  explicit StorageItem(Path path) : path_(std::make_shared<ItemPath>(std::move(path))) {}

  HRESULT WRT_ABI RenameAsyncOverloadDefaultOptions(HSTRING name,
                                                    abi::IAsyncAction **result) override {
    return RenameAsync(name, static_cast<int>(Collision::kFail), result);
  }
  HRESULT WRT_ABI RenameAsync(HSTRING name, int option, abi::IAsyncAction **result) override {
    const std::u16string_view wanted = viewOf(name);
    if (!isItemName(wanted) || wanted.find(u'/') != wanted.npos)
      return refuse(result);
    return moveTo(path().parent_path() / toPath(wanted), option, result);
  }
  HRESULT WRT_ABI DeleteAsyncOverloadDefaultOptions(abi::IAsyncAction **result) override {
    return DeleteAsync(0, result);
  }
  HRESULT WRT_ABI DeleteAsync(int /*option*/, abi::IAsyncAction **result) override {
    return startAsync(result, [path = path()](const Work<> &) { return deleteItem(path); });
  }
  HRESULT WRT_ABI
  GetBasicPropertiesAsync(abi::IAsyncOperation__1_WRTBasicProperties_P **result) override {
    return answerAsync<types::BasicProperties>(
        result, [&](ComPtr<abi::IBasicProperties> &properties) {
          ItemFacts facts;
          const HRESULT status =
              path_->with([&](const Path &own) { return readFacts(own, &facts); });
          if (status >= 0)
            properties = makeBasicProperties(facts);
          return status;
        });
  }

  HRESULT WRT_ABI get_Name(HSTRING *name) override {
    return path_->with([&](const Path &own) { return text(own.filename(), name); });
  }
  HRESULT WRT_ABI get_Path(HSTRING *result) override { return text(path(), result); }
  HRESULT WRT_ABI get_Attributes(int *attributes) override {
    return facts(attributes, [](const ItemFacts &facts) {
      return (facts.readOnly ? WRTFileAttributesReadOnly : 0) |
             (facts.kind == ItemKind::kFolder ? WRTFileAttributesDirectory : 0);
    });
  }
  HRESULT WRT_ABI get_DateCreated(WRTDateTime *created) override {
    return facts(created, [](const ItemFacts &facts) { return WRTDateTime{facts.created}; });
  }
  HRESULT WRT_ABI IsOfType(int type, unsigned char *result) override {
    if (result == nullptr)
      return status::kPointer;
    *result = type == kType;
    return status::kOk;
  }

  HRESULT WRT_ABI GetParentAsync(abi::IAsyncOperation__1_WRTStorageFolder_P **result) override {
    return answerAsync<FolderRef>(result, [own = path()](ComPtr<abi::IStorageFolder> &parent) {
      // The root has none, which is no failure.
      return own.has_relative_path() ? openFolder(own.parent_path(), parent) : status::kOk;
    });
  }
  HRESULT WRT_ABI IsEqual(abi::IStorageItem *item, unsigned char *result) override {
    if (result == nullptr)
      return status::kPointer;
    *result = 0;
    Path other;
    const HRESULT status = pathOf(item, &other);
    if (status < 0)
      return status;
    std::error_code error;
    *result = other == path() || std::filesystem::equivalent(other, path(), error);
    return status::kOk;
  }

  HRESULT WRT_ABI get_DisplayName(HSTRING *name) override {
    return text(kType == WRTStorageItemTypesFile ? path().stem() : path().filename(), name);
  }
  HRESULT WRT_ABI get_DisplayType(HSTRING *type) override {
    if (type == nullptr)
      return status::kPointer;
    if (kType != WRTStorageItemTypesFile)
      return makeString(u"File folder", type);
    std::u16string extension = textOf(path().extension());
    std::ranges::transform(extension, extension.begin(), [](char16_t c) {
      return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - u'a' + u'A') : c;
    });
    return makeString(extension.size() < 2 ? u"File" : extension.substr(1) + u" File", type);
  }
  HRESULT WRT_ABI get_FolderRelativeId(HSTRING *id) override { return notImplemented(id); }
  HRESULT WRT_ABI get_Properties(abi::IStorageItemContentProperties **properties) override {
    return notImplemented(properties);
  }
  HRESULT WRT_ABI get_Provider(abi::IStorageProvider **provider) override {
    return notImplemented(provider);
  }

  using Thumbnail = abi::IAsyncOperation__1_WRTStorageItemThumbnail_P;
  HRESULT WRT_ABI GetThumbnailAsyncOverloadDefaultSizeDefaultOptions(int, Thumbnail **r) override {
    return notImplemented(r);
  }
  HRESULT WRT_ABI GetThumbnailAsyncOverloadDefaultOptions(int, unsigned, Thumbnail **r) override {
    return notImplemented(r);
  }
  HRESULT WRT_ABI GetThumbnailAsync(int, unsigned, int, Thumbnail **r) override {
    return notImplemented(r);
  }
  HRESULT WRT_ABI
  GetScaledImageAsThumbnailAsyncOverloadDefaultSizeDefaultOptions(int, Thumbnail **r) override {
    return notImplemented(r);
  }
  HRESULT WRT_ABI GetScaledImageAsThumbnailAsyncOverloadDefaultOptions(int, unsigned,
                                                                       Thumbnail **r) override {
    return notImplemented(r);
  }
  HRESULT WRT_ABI GetScaledImageAsThumbnailAsync(int, unsigned, int, Thumbnail **r) override {
    return notImplemented(r);
  }

protected:
  static constexpr int kType = std::is_same_v<Default, abi::IStorageFile>
                                   ? WRTStorageItemTypesFile
                                   : WRTStorageItemTypesFolder;

  Path path() const { return path_->get(); }

  /// Moves the item, and then this object with it.
  HRESULT moveTo(Path to, int option, abi::IAsyncAction **result) {
    return startAsync(result, [path = path_, to = std::move(to), option](const Work<> &) mutable {
      const HRESULT status = moveItem(path->get(), &to, static_cast<Collision>(option));
      if (status >= 0)
        path->set(to);
      return status;
    });
  }

  static HRESULT text(const Path &path, HSTRING *result) {
    return result == nullptr ? status::kPointer : makeString(textOf(path), result);
  }

  /// Answers a call with an argument that makes no sense.
  template <class Result>
  static HRESULT refuse(Result **result) {
    if (result == nullptr)
      return status::kPointer;
    *result = nullptr;
    return status::kInvalidArgument;
  }

private:
  template <class Value, class Choose>
  HRESULT facts(Value *value, Choose choose) {
    if (value == nullptr)
      return status::kPointer;
    ItemFacts facts;
    const HRESULT status = readFacts(path(), &facts);
    *value = status < 0 ? Value{} : choose(facts);
    return status;
  }

  const std::shared_ptr<ItemPath> path_;
};

} // namespace wrt::components

#endif
