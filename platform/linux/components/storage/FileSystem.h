/// Files and folders of the real file system as WinRT's storage classes see them. Everything here
/// blocks and may be called on any thread; failures are statuses.
#ifndef WRT_COMPONENTS_FILE_SYSTEM_H
#define WRT_COMPONENTS_FILE_SYSTEM_H

#include <WRTStatus.h>
#include <abi/Windows.Storage.abi.h>

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace wrt::components {

using Path = std::filesystem::path;

enum class ItemKind { kFile, kFolder };

/// What there is to know about an item. Symbolic links are followed.
struct ItemFacts {
  ItemKind kind = ItemKind::kFile;
  bool readOnly = false; ///< nobody may write to it
  uint64_t size = 0;     ///< in bytes; 0 for folders
  int64_t modified = 0;  ///< universal time in units of 100 ns since 1601
  int64_t created = 0;   ///< likewise; the time of the last modification where no other is known
};

/// What to do when the name is taken.
enum class Collision {
  kUniqueName = WRTCreationCollisionOptionGenerateUniqueName,
  kReplace = WRTCreationCollisionOptionReplaceExisting,
  kFail = WRTCreationCollisionOptionFailIfExists,
  kOpen = WRTCreationCollisionOptionOpenIfExists
};

/// The path without "." and "..", which mean what they mean to the system: behind a symbolic link
/// ".." is the folder above the one that it leads to. A slash at the end stays. What is not
/// absolute or does not exist comes back as it is, or so that nothing is there.
Path withoutDots(const Path &path);

/// Fails with file not found, access denied, ...
HRESULT readFacts(const Path &path, ItemFacts *facts);

/// The folder's items in the order of their names, which is that of their bytes. Items that vanish
/// meanwhile, links that lead nowhere and what is neither file nor folder are left out. Hidden
/// items (names with a leading dot) belong to it. A folder whose items cannot be reached is refused
/// with access denied like one that cannot be read.
struct Listed {
  Path path;
  ItemKind kind;
};
HRESULT listFolder(const Path &folder, std::vector<Listed> *items);
/// Also everything below; folders that cannot be read are logged and passed over, except `folder`
/// itself.
/// Symbolic links to folders are listed and not entered.
HRESULT listTree(const Path &folder, std::vector<Listed> *items);

/// Whether `name` names an item within a folder, or below it: not empty, not absolute, no "..".
bool isItemName(std::u16string_view name);

/// Creates an empty file or a folder, `*path` being its name after the collision was dealt with.
/// Replacing a folder empties it; a taken name of the other kind fails.
HRESULT createItem(Path *path, ItemKind kind, Collision collision);
/// Removes a file, or a folder with everything in it.
HRESULT deleteItem(const Path &path);
/// Gives `from` the name `*to`, also on another device if it is a file.
HRESULT moveItem(const Path &from, Path *to, Collision collision);
/// Copies a file.
HRESULT copyFile(const Path &from, Path *to, Collision collision);

/// A whole file.
HRESULT readFile(const Path &path, std::string *bytes);
/// Replaces the file's content, or adds to it. The file must exist.
HRESULT writeFile(const Path &path, std::string_view bytes, bool append);

} // namespace wrt::components

#endif
