#ifndef WRT_FILE_QUERY_H
#define WRT_FILE_QUERY_H

#include "platform/linux/components/storage/StorageTypes.h"

namespace wrt::components {

/// The order and depth in which a query yields files.
enum class FileOrder {
  kDefault = WRTCommonFileQueryDefaultQuery,
  kByName = WRTCommonFileQueryOrderByName,
  kByDate = WRTCommonFileQueryOrderByDate
};

/// Which files of a folder are meant.
struct FileQuery {
  FileOrder order = FileOrder::kDefault;
  bool deep = false;
  /// Extensions with their dots, compared without regard to case; none, or one that is "*", means
  /// all files.
  std::vector<std::u16string> types;
};

/// Whether there is an implementation of the query with this number; `*order` is it.
bool isFileOrder(int query, FileOrder *order);

/// The files that the query yields now. By name or date means with everything below the folder, as
/// does `deep`; by date, the latest come first.
HRESULT findFiles(const Path &folder, const FileQuery &query, std::vector<Listed> *files);

/// The query that `options` (borrowed) describe. Fails with `E_INVALIDARG` for null, and for
/// options that there is no implementation of: search texts.
HRESULT queryOf(abi::IQueryOptions *options, FileQuery *query);
/// New options that describe `query`.
ComPtr<abi::IQueryOptions> makeQueryOptions(const FileQuery &query);
/// A new query result over a folder.
ComPtr<abi::IStorageFileQueryResult> makeFileQueryResult(Path folder,
                                                         ComPtr<abi::IQueryOptions> options);

} // namespace wrt::components

#endif
