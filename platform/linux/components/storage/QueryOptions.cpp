#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/components/collections/Vector.h"
#include "platform/linux/components/storage/FileQuery.h"
#include "platform/linux/implement/StringHolder.h"

#include <abi/IIterable.abi.h>
#include <abi/IVector.abi.h>

#include <atomic>

namespace wrt::components {
namespace {

constexpr std::u16string_view kName = u"Windows.Storage.Search.QueryOptions";

/// How a query's result gets at its options' order; of no use outside of this file.
struct IFileOrder : abi::IUnknown {
  static constexpr GUID kIid{
      0x3D1B7C52, 0x90EE, 0x4A8B, {0xB6, 0x0F, 0x27, 0x48, 0xC1, 0x9D, 0x5E, 0x74}};

  virtual FileOrder fileOrder() const = 0;

protected:
  ~IFileOrder() = default;
};

class QueryOptions final
    : public Implements<abi::IQueryOptions, abi::IQueryOptionsWithProviderFilter, IFileOrder> {
public:
  explicit QueryOptions(const FileQuery &query)
      : order_(query.order), types_(make<Vector<String>>(holders(query.types))),
        deep_(query.deep || query.order != FileOrder::kDefault) {}

  FileOrder fileOrder() const override { return order_; }

  HRESULT WRT_ABI get_FileTypeFilter(abi::IVector__1_WRTHSTRING **types) override {
    return handOut<IVector<String>>(types_, types);
  }
  HRESULT WRT_ABI get_FolderDepth(int *depth) override {
    return give(deep_ ? WRTFolderDepthDeep : WRTFolderDepthShallow, depth);
  }
  HRESULT WRT_ABI put_FolderDepth(int depth) override {
    if (depth != WRTFolderDepthShallow && depth != WRTFolderDepthDeep)
      return status::kInvalidArgument;
    deep_ = depth == WRTFolderDepthDeep;
    return status::kOk;
  }
  HRESULT WRT_ABI get_ApplicationSearchFilter(HSTRING *text) override {
    return give(applicationFilter_, text);
  }
  HRESULT WRT_ABI put_ApplicationSearchFilter(HSTRING text) override {
    return take(text, applicationFilter_);
  }
  HRESULT WRT_ABI get_UserSearchFilter(HSTRING *text) override { return give(userFilter_, text); }
  HRESULT WRT_ABI put_UserSearchFilter(HSTRING text) override { return take(text, userFilter_); }
  HRESULT WRT_ABI get_Language(HSTRING *text) override { return give(language_, text); }
  HRESULT WRT_ABI put_Language(HSTRING text) override { return take(text, language_); }
  HRESULT WRT_ABI get_IndexerOption(int *option) override { return give(indexer_, option); }
  HRESULT WRT_ABI put_IndexerOption(int option) override {
    if (option < 0 || option > WRTIndexerOptionOnlyUseIndexerAndOptimizeForIndexedProperties)
      return status::kInvalidArgument;
    indexer_ = option; // there is no index: every query looks at the folders themselves
    return status::kOk;
  }
  HRESULT WRT_ABI get_DateStackOption(int *option) override {
    return give(WRTDateStackOptionNone, option);
  }
  HRESULT WRT_ABI get_GroupPropertyName(HSTRING *name) override {
    return name == nullptr ? status::kPointer : makeString(u"", name);
  }
  // Nothing is fetched ahead: every question meets the file itself.
  HRESULT WRT_ABI SetThumbnailPrefetch(int, unsigned, int) override { return status::kOk; }
  HRESULT WRT_ABI SetPropertyPrefetch(int, abi::IIterable__1_WRTHSTRING *) override {
    return status::kOk;
  }

  HRESULT WRT_ABI get_SortOrder(abi::IVector__1_WRTSortEntry **r) override {
    return notImplemented(r);
  }
  HRESULT WRT_ABI SaveToString(HSTRING *r) override { return notImplemented(r); }
  HRESULT WRT_ABI LoadFromString(HSTRING) override { return status::kNotImplemented; }
  HRESULT WRT_ABI get_StorageProviderIdFilter(abi::IVector__1_WRTHSTRING **r) override {
    return notImplemented(r);
  }

private:
  std::u16string_view runtimeClassName() const override { return kName; }

  static Items<String> holders(const std::vector<std::u16string> &texts) {
    return {texts.begin(), texts.end()};
  }
  static HRESULT give(int value, int *result) {
    if (result == nullptr)
      return status::kPointer;
    *result = value;
    return status::kOk;
  }
  HRESULT give(const StringHolder &text, HSTRING *result) const {
    std::lock_guard lock(mutex_);
    return text.copyTo(result);
  }
  HRESULT take(HSTRING text, StringHolder &place) {
    std::lock_guard lock(mutex_);
    return String::store(text, place);
  }

  const FileOrder order_;
  const ComPtr<Vector<String>> types_;
  std::atomic<bool> deep_;
  std::atomic<int> indexer_ = 0;
  mutable std::mutex mutex_; ///< guards the texts
  StringHolder applicationFilter_, userFilter_, language_;
};

class QueryOptionsFactory final : public ActivationFactory<abi::IQueryOptionsFactory> {
public:
  HRESULT WRT_ABI ActivateInstance(abi::IInspectable **instance) override {
    if (instance == nullptr)
      return status::kPointer;
    *instance = make<QueryOptions>(FileQuery{}).detach()->identity();
    return status::kOk;
  }

  HRESULT WRT_ABI CreateCommonFileQuery(int query, abi::IIterable__1_WRTHSTRING *types,
                                        abi::IQueryOptions **result) override {
    if (result == nullptr)
      return status::kPointer;
    *result = nullptr;
    FileQuery wanted;
    if (!isFileOrder(query, &wanted.order))
      return status::kInvalidArgument;
    if (types != nullptr) {
      const HRESULT status = collect(interfaceCast<IIterable<String>>(types), &wanted.types);
      if (status < 0)
        return status;
    }
    return makeInto<QueryOptions>(result, wanted);
  }
  HRESULT WRT_ABI CreateCommonFolderQuery(int, abi::IQueryOptions **result) override {
    return notImplemented(result);
  }

private:
  std::u16string_view runtimeClassName() const override { return kName; }

  static HRESULT collect(IIterable<String> *from, std::vector<std::u16string> *texts) {
    ComPtr<IIterator<String>> iterator;
    uint8_t has = 0;
    HRESULT status = from->First(iterator.put());
    if (status >= 0)
      status = iterator->get_HasCurrent(&has);
    while (status >= 0 && has != 0) {
      StringHolder text;
      status = iterator->get_Current(text.put());
      texts->emplace_back(text.view());
      if (status >= 0)
        status = iterator->MoveNext(&has);
    }
    return status;
  }
};

const activation::Registration registration(kName, activation::makeFactory<QueryOptionsFactory>);

} // namespace

HRESULT queryOf(abi::IQueryOptions *options, FileQuery *query) {
  if (options == nullptr)
    return status::kInvalidArgument;
  StringHolder applicationFilter, userFilter;
  int depth = 0;
  abi::IVector__1_WRTHSTRING *declared = nullptr;
  HRESULT status = options->get_FolderDepth(&depth);
  if (status >= 0)
    status = options->get_ApplicationSearchFilter(applicationFilter.put());
  if (status >= 0)
    status = options->get_UserSearchFilter(userFilter.put());
  if (status >= 0)
    status = options->get_FileTypeFilter(&declared);
  if (status < 0)
    return status;
  const auto types = ComPtr<abi::IVector__1_WRTHSTRING>::adopt(declared);
  if (applicationFilter.get() != nullptr || userFilter.get() != nullptr)
    return status::kInvalidArgument;
  const auto order = ComPtr(options).as<IFileOrder>();
  query->order = order ? order->fileOrder() : FileOrder::kDefault;
  query->deep = depth == WRTFolderDepthDeep;
  unsigned count = 0;
  status = types->get_Size(&count);
  for (unsigned i = 0; status >= 0 && i < count; ++i) {
    StringHolder type;
    status = types->GetAt(i, type.put());
    query->types.emplace_back(type.view());
  }
  return status;
}

ComPtr<abi::IQueryOptions> makeQueryOptions(const FileQuery &query) {
  return make<QueryOptions>(query);
}

} // namespace wrt::components
