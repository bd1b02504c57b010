#include "platform/linux/components/storage/FileSystem.h"

#include "platform/linux/components/foundation/Text.h"
#include "platform/linux/components/storage/FileStatus.h"
#include "platform/linux/components/storage/StorageLog.h"
#include "platform/linux/components/streams/ByteStore.h"
#include "platform/linux/memory/Allocation.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

namespace wrt::components {
namespace {

/// From the Unix epoch's start back to 1601-01-01, in seconds.
constexpr int64_t kSecondsFrom1601 = 11644473600;

int64_t universalTime(const statx_timestamp &time) {
  return (time.tv_sec + kSecondsFrom1601) * 10'000'000 + time.tv_nsec / 100;
}

/// Nothing for what is neither a file nor a folder. Asks the system for links alone: the folder
/// itself tells what else is what.
bool classify(const fs::directory_entry &entry, ItemKind *kind) {
  std::error_code error;
  if (entry.is_directory(error))
    *kind = ItemKind::kFolder;
  else if (entry.is_regular_file(error))
    *kind = ItemKind::kFile;
  else
    return false;
  return true;
}

/// As comparing the paths part by part does, which takes ten times as long.
void sortByName(std::vector<Listed> &items) {
  constexpr auto rank = [](char c) { return c == '/' ? 0 : static_cast<uint8_t>(c); };
  std::ranges::sort(items, [&](const Listed &left, const Listed &right) {
    return std::ranges::lexicographical_compare(left.path.native(), right.path.native(), {}, rank,
                                                rank);
  });
}

bool isTaken(const Path &path) {
  std::error_code error;
  return fs::exists(fs::symlink_status(path, error));
}

bool isFolder(const Path &path) {
  std::error_code error;
  return fs::is_directory(path, error);
}

/// "name (2).txt", "name (3).txt", ... whichever is free.
Path uniqueName(const Path &path) {
  for (unsigned number = 2;; ++number) {
    Path candidate = path.parent_path() / path.stem();
    candidate += " (" + std::to_string(number) + ")";
    candidate += path.extension();
    if (!isTaken(candidate))
      return candidate;
  }
}

/// Makes room for an item at `*target`, whose new name it may become.
HRESULT makeRoom(Path *target, Collision collision) {
  if (!isTaken(*target))
    return status::kOk;
  switch (collision) {
  case Collision::kUniqueName:
    *target = uniqueName(*target);
    return status::kOk;
  case Collision::kReplace:
    return isFolder(*target) ? kAccessDenied : status::kOk;
  default:
    return kAlreadyExists;
  }
}

HRESULT createFile(const Path &path, int flags) {
  const int descriptor = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | flags, 0666);
  if (descriptor < 0)
    return statusOfErrno(errno);
  ::close(descriptor);
  return status::kOk;
}

HRESULT emptyFolder(const Path &folder) {
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (const HRESULT status = deleteItem(entry->path()); status < 0)
      return status;
  }
  return statusOf(error);
}

} // namespace

Path withoutDots(const Path &path) {
  if (!path.is_absolute())
    return path;
  Path result = path.root_path();
  for (const Path &part : path.relative_path()) {
    std::error_code error;
    if (part == "..") {
      if (!fs::is_directory(result, error))
        return path;
      if (fs::is_symlink(result, error))
        result = fs::canonical(result, error);
      result = result.parent_path();
    } else if (part != "." && !part.empty()) {
      result /= part;
    }
  }
  return path.has_filename() ? result : result / "";
}

HRESULT readFacts(const Path &path, ItemFacts *facts) {
  struct statx found;
  if (::statx(AT_FDCWD, path.c_str(), 0, STATX_BASIC_STATS | STATX_BTIME, &found) != 0)
    return statusOfErrno(errno);
  if (!S_ISREG(found.stx_mode) && !S_ISDIR(found.stx_mode))
    return kAccessDenied;
  const bool isFile = S_ISREG(found.stx_mode);
  const bool hasBirth = (found.stx_mask & STATX_BTIME) != 0;
  *facts = {isFile ? ItemKind::kFile : ItemKind::kFolder, (found.stx_mode & 0222) == 0,
            isFile ? found.stx_size : 0, universalTime(found.stx_mtime),
            universalTime(hasBirth ? found.stx_btime : found.stx_mtime)};
  return status::kOk;
}

HRESULT listFolder(const Path &folder, std::vector<Listed> *items) {
  items->clear();
  std::error_code error;
  if (::faccessat(AT_FDCWD, folder.c_str(), X_OK, AT_EACCESS) != 0)
    return statusOfErrno(errno);
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    ItemKind kind;
    if (classify(*entry, &kind))
      items->push_back({entry->path(), kind});
  }
  sortByName(*items);
  return statusOf(error);
}

HRESULT listTree(const Path &folder, std::vector<Listed> *items) {
  if (const HRESULT status = listFolder(folder, items); status < 0)
    return status;
  // Grows while it is walked: the folders of each level are entered behind those before them.
  for (size_t i = 0; i < items->size(); ++i) {
    const Listed item = (*items)[i];
    std::error_code error;
    if (item.kind != ItemKind::kFolder || fs::is_symlink(item.path, error))
      continue;
    std::vector<Listed> below;
    if (const HRESULT status = listFolder(item.path, &below); status >= 0)
      items->insert(items->end(), below.begin(), below.end());
    else if (status != kFileNotFound) // which has gone meanwhile
      logLeftOut(item.path, status);
  }
  sortByName(*items);
  return status::kOk;
}

bool isItemName(std::u16string_view name) {
  const Path path = toPath(name);
  if (name.empty() || name.find(u'\0') != name.npos || path.is_absolute() || !path.has_filename())
    return false;
  return std::ranges::none_of(path, [](const Path &part) { return part == ".." || part == "."; });
}

HRESULT createItem(Path *path, ItemKind kind, Collision collision) {
  if (collision == Collision::kUniqueName && isTaken(*path))
    *path = uniqueName(*path);
  ItemFacts facts;
  const bool taken = isTaken(*path);
  if (taken) {
    if (collision == Collision::kFail)
      return kAlreadyExists;
    if (const HRESULT status = readFacts(*path, &facts); status < 0)
      return status;
    if (facts.kind != kind)
      return kAlreadyExists;
  }
  if (kind == ItemKind::kFile) {
    const int flags = collision == Collision::kReplace ? O_TRUNC
                      : collision == Collision::kOpen  ? 0
                                                       : O_EXCL;
    return taken && collision == Collision::kOpen ? status::kOk : createFile(*path, flags);
  }
  if (taken)
    return collision == Collision::kReplace ? emptyFolder(*path) : status::kOk;
  std::error_code error;
  fs::create_directory(*path, error);
  return statusOf(error);
}

HRESULT deleteItem(const Path &path) {
  if (!isTaken(path))
    return kFileNotFound;
  std::error_code error;
  fs::remove_all(path, error);
  return statusOf(error);
}

HRESULT moveItem(const Path &from, Path *to, Collision collision) {
  if (!isTaken(from))
    return kFileNotFound;
  if (from == *to)
    return status::kOk;
  if (const HRESULT status = makeRoom(to, collision); status < 0)
    return status;
  std::error_code error;
  fs::rename(from, *to, error);
  if (error != std::errc::cross_device_link || isFolder(from))
    return statusOf(error);
  if (const HRESULT status = copyFile(from, to, Collision::kReplace); status < 0)
    return status;
  return deleteItem(from);
}

HRESULT copyFile(const Path &from, Path *to, Collision collision) {
  ItemFacts facts;
  if (const HRESULT status = readFacts(from, &facts); status < 0)
    return status;
  if (facts.kind != ItemKind::kFile)
    return status::kInvalidArgument;
  if (const HRESULT status = makeRoom(to, collision); status < 0)
    return status;
  std::error_code error;
  fs::copy_file(from, *to, fs::copy_options::overwrite_existing, error);
  return statusOf(error);
}

HRESULT readFile(const Path &path, std::string *bytes) {
  std::shared_ptr<ByteStore> store;
  HRESULT status = FileStore::open(path, FileStore::Access::kRead, &store);
  uint64_t size = 0;
  if (status >= 0)
    status = store->size(&size);
  if (status < 0)
    return status;
  // What says that it is empty may still have content, as the files of /proc do, and a file may
  // grow meanwhile: reading goes on until there is no more.
  size_t filled = 0;
  for (size_t room = size + 1;; room = filled * 2 + 4096) {
    const memory::FailuresAreCaught guard;
    try {
      bytes->resize(room);
    } catch (const std::bad_alloc &) {
      return status::kOutOfMemory;
    }
    size_t count = 0;
    status = store->read(
        filled, {reinterpret_cast<uint8_t *>(bytes->data()) + filled, room - filled}, &count);
    if (status < 0)
      return status;
    filled += count;
    if (filled < room)
      break;
  }
  bytes->resize(filled);
  return status::kOk;
}

HRESULT writeFile(const Path &path, std::string_view bytes, bool append) {
  std::shared_ptr<ByteStore> store;
  HRESULT status = FileStore::open(path, FileStore::Access::kReadWrite, &store);
  uint64_t size = 0;
  if (status >= 0)
    status = append ? store->size(&size) : store->resize(0);
  if (status < 0)
    return status;
  return store->write(size, {reinterpret_cast<const uint8_t *>(bytes.data()), bytes.size()});
}

} // namespace wrt::components
