#include "platform/linux/components/storage/FileQuery.h"

#include <algorithm>
#include <map>
#include <utility>

namespace wrt::components {
namespace {

std::u16string lowerCase(std::u16string text) {
  std::ranges::transform(text, text.begin(), [](char16_t c) {
    return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c - u'A' + u'a') : c;
  });
  return text;
}

void sortByDate(std::vector<Listed> &files) {
  std::map<Path, int64_t> dates;
  for (const Listed &file : files) {
    ItemFacts facts;
    dates[file.path] = readFacts(file.path, &facts) < 0 ? 0 : facts.modified;
  }
  std::ranges::sort(files, {}, [&](const Listed &file) {
    return std::pair(-dates[file.path], file.path); // one that is the same every time
  });
}

} // namespace

bool isFileOrder(int query, FileOrder *order) {
  *order = static_cast<FileOrder>(query);
  return *order == FileOrder::kDefault || *order == FileOrder::kByName ||
         *order == FileOrder::kByDate;
}

HRESULT findFiles(const Path &folder, const FileQuery &query, std::vector<Listed> *files) {
  const bool deep = query.deep || query.order != FileOrder::kDefault;
  const HRESULT status = deep ? listTree(folder, files) : listFolder(folder, files);
  if (status < 0)
    return status;
  std::vector<std::u16string> types;
  types.reserve(query.types.size());
  for (const std::u16string &type : query.types)
    types.push_back(lowerCase(type));
  const bool all = types.empty() || std::ranges::find(types, u"*") != types.end();
  std::erase_if(*files, [&](const Listed &item) {
    if (item.kind != ItemKind::kFile)
      return true;
    const std::u16string type = lowerCase(textOf(item.path.extension()));
    return !all && std::ranges::find(types, type) == types.end();
  });
  if (query.order == FileOrder::kByName)
    std::ranges::sort(
        *files, {}, [](const Listed &file) { return std::pair(file.path.filename(), file.path); });
  if (query.order == FileOrder::kByDate)
    sortByDate(*files);
  return status::kOk;
}

} // namespace wrt::components
