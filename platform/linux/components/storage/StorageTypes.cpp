#include "platform/linux/components/storage/StorageTypes.h"

#include "platform/linux/implement/StringHolder.h"

#include <algorithm>

namespace wrt::components {
namespace {

/// Windows.Storage.FileProperties.BasicProperties, as they were when they were asked for.
class BasicProperties final
    : public Implements<abi::IBasicProperties, abi::IStorageItemExtraProperties> {
public:
  explicit BasicProperties(const ItemFacts &facts) : facts_(facts) {}

  HRESULT WRT_ABI get_Size(unsigned long long *size) override { return give(facts_.size, size); }
  HRESULT WRT_ABI get_DateModified(WRTDateTime *date) override {
    return give(WRTDateTime{facts_.modified}, date);
  }
  HRESULT WRT_ABI get_ItemDate(WRTDateTime *date) override {
    return give(WRTDateTime{facts_.modified}, date);
  }

  HRESULT WRT_ABI RetrievePropertiesAsync(
      abi::IIterable__1_WRTHSTRING *,
      abi::IAsyncOperation__1_WRTIMap__2_WRTHSTRING_WRTIInspectable_P_P **r) override {
    return notImplemented(r);
  }
  HRESULT WRT_ABI
  SavePropertiesAsync(abi::IIterable__1_WRTIKeyValuePair__2_WRTHSTRING_WRTIInspectable_P_P *,
                      abi::IAsyncAction **r) override {
    return notImplemented(r);
  }
  HRESULT WRT_ABI SavePropertiesAsyncOverloadDefault(abi::IAsyncAction **r) override {
    return notImplemented(r);
  }

private:
  std::u16string_view runtimeClassName() const override {
    return u"Windows.Storage.FileProperties.BasicProperties";
  }
  template <class From, class To>
  static HRESULT give(const From &value, To *result) {
    if (result == nullptr)
      return status::kPointer;
    *result = value;
    return status::kOk;
  }

  const ItemFacts facts_;
};

/// `E_INVALIDARG` when the item at `path` is of the other kind, or the path is not absolute.
HRESULT expectKind(const Path &path, ItemKind kind) {
  if (!path.is_absolute())
    return status::kInvalidArgument;
  ItemFacts facts;
  const HRESULT status = readFacts(path, &facts);
  return status < 0 || facts.kind == kind ? status : status::kInvalidArgument;
}

} // namespace

ComPtr<abi::IBasicProperties> makeBasicProperties(const ItemFacts &facts) {
  return make<BasicProperties>(facts);
}

HRESULT openFile(const Path &path, ComPtr<abi::IStorageFile> &file) {
  const HRESULT status = expectKind(path, ItemKind::kFile);
  if (status >= 0)
    file = makeFile(path);
  return status;
}

HRESULT openFolder(const Path &path, ComPtr<abi::IStorageFolder> &folder) {
  const HRESULT status = expectKind(path, ItemKind::kFolder);
  if (status >= 0)
    folder = makeFolder(path);
  return status;
}

HRESULT openItem(const Path &path, ComPtr<abi::IStorageItem> &item) {
  ItemFacts facts;
  const HRESULT status = readFacts(path, &facts);
  if (status >= 0)
    item = facts.kind == ItemKind::kFile ? makeFile(path).as<abi::IStorageItem>()
                                         : makeFolder(path).as<abi::IStorageItem>();
  return status;
}

HRESULT pathOf(abi::IUnknown *object, Path *path) {
  const auto item = ComPtr(object).as<abi::IStorageItem>();
  if (!item)
    return status::kInvalidArgument;
  StringHolder text;
  const HRESULT status = item->get_Path(text.put());
  if (status >= 0)
    *path = toPath(text.view());
  return status;
}

std::u16string_view contentTypeOf(const Path &path) {
  static constexpr std::pair<std::string_view, std::u16string_view> kTypes[] = {
      {".bmp", u"image/bmp"},
      {".css", u"text/css"},
      {".csv", u"text/csv"},
      {".gif", u"image/gif"},
      {".htm", u"text/html"},
      {".html", u"text/html"},
      {".jpeg", u"image/jpeg"},
      {".jpg", u"image/jpeg"},
      {".js", u"text/javascript"},
      {".json", u"application/json"},
      {".md", u"text/markdown"},
      {".mp3", u"audio/mpeg"},
      {".mp4", u"video/mp4"},
      {".pdf", u"application/pdf"},
      {".png", u"image/png"},
      {".svg", u"image/svg+xml"},
      {".txt", u"text/plain"},
      {".wav", u"audio/wav"},
      {".xhtml", u"application/xhtml+xml"},
      {".xml", u"text/xml"},
      {".zip", u"application/zip"},
  };
  std::string extension = path.extension().native();
  std::ranges::transform(extension, extension.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; });
  const auto found =
      std::ranges::find(kTypes, extension, [](const auto &type) { return type.first; });
  return found == std::end(kTypes) ? std::u16string_view() : found->second;
}

} // namespace wrt::components
