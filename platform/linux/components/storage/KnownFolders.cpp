#include "platform/linux/activation/ActivationRegistry.h"
#include "platform/linux/components/storage/StorageTypes.h"

#include <cstdlib>
#include <fstream>

namespace wrt::components {
namespace {

/// The user's own folders have names of the user's choice, which stand in a file as in
/// `XDG_MUSIC_DIR="$HOME/Music"`.
Path userFolder(const std::string &variable, const char *usualName) {
  const char *home = std::getenv("HOME");
  if (home == nullptr)
    return {};
  const char *config = std::getenv("XDG_CONFIG_HOME");
  std::ifstream file((config != nullptr ? Path(config) : Path(home) / ".config") /
                     "user-dirs.dirs");
  const std::string start = "XDG_" + variable + "_DIR=\"";
  for (std::string line; std::getline(file, line);) {
    if (!line.starts_with(start))
      continue;
    std::string value = line.substr(start.size(), line.rfind('"') - start.size());
    return value.starts_with("$HOME") ? Path(home + value.substr(5)) : Path(value);
  }
  return Path(home) / usualName;
}

struct KnownFolder {
  WRTKnownFolderId id;
  const char *variable;
  const char *usualName;
  const char *below; ///< within that folder
};
constexpr KnownFolder kFolders[] = {
    {WRTKnownFolderIdCameraRoll, "PICTURES", "Pictures", "Camera Roll"},
    {WRTKnownFolderIdDocumentsLibrary, "DOCUMENTS", "Documents", ""},
    {WRTKnownFolderIdMusicLibrary, "MUSIC", "Music", ""},
    {WRTKnownFolderIdPicturesLibrary, "PICTURES", "Pictures", ""},
    {WRTKnownFolderIdPlaylists, "MUSIC", "Music", "Playlists"},
    {WRTKnownFolderIdSavedPictures, "PICTURES", "Pictures", "Saved Pictures"},
    {WRTKnownFolderIdScreenshots, "PICTURES", "Pictures", "Screenshots"},
    {WRTKnownFolderIdVideosLibrary, "VIDEOS", "Videos", ""},
};

HRESULT findKnown(int id, ComPtr<abi::IStorageFolder> &folder) {
  for (const KnownFolder &known : kFolders) {
    if (known.id != id)
      continue;
    Path path = userFolder(known.variable, known.usualName);
    if (path.empty())
      return kPathNotFound;
    if (*known.below != '\0')
      path /= known.below;
    return openFolder(path, folder);
  }
  return status::kNotImplemented;
}

/// Windows.Storage.KnownFolders. A folder that is not there fails with file not found.
class KnownFolders final
    : public ActivationFactory<abi::IKnownFoldersStatics, abi::IKnownFoldersCameraRollStatics,
                               abi::IKnownFoldersPlaylistsStatics,
                               abi::IKnownFoldersSavedPicturesStatics, abi::IKnownFoldersStatics2,
                               abi::IKnownFoldersStatics3> {
public:
  using Result = abi::IStorageFolder;
  HRESULT WRT_ABI get_CameraRoll(Result **result) override {
    return known(WRTKnownFolderIdCameraRoll, result);
  }
  HRESULT WRT_ABI get_DocumentsLibrary(Result **result) override {
    return known(WRTKnownFolderIdDocumentsLibrary, result);
  }
  HRESULT WRT_ABI get_MusicLibrary(Result **result) override {
    return known(WRTKnownFolderIdMusicLibrary, result);
  }
  HRESULT WRT_ABI get_PicturesLibrary(Result **result) override {
    return known(WRTKnownFolderIdPicturesLibrary, result);
  }
  HRESULT WRT_ABI get_Playlists(Result **result) override {
    return known(WRTKnownFolderIdPlaylists, result);
  }
  HRESULT WRT_ABI get_SavedPictures(Result **result) override {
    return known(WRTKnownFolderIdSavedPictures, result);
  }
  HRESULT WRT_ABI get_VideosLibrary(Result **result) override {
    return known(WRTKnownFolderIdVideosLibrary, result);
  }

  // There is nothing like them here.
  HRESULT WRT_ABI get_HomeGroup(Result **r) override { return notImplemented(r); }
  HRESULT WRT_ABI get_RemovableDevices(Result **r) override { return notImplemented(r); }
  HRESULT WRT_ABI get_MediaServerDevices(Result **r) override { return notImplemented(r); }
  HRESULT WRT_ABI get_Objects3D(Result **r) override { return notImplemented(r); }
  HRESULT WRT_ABI get_AppCaptures(Result **r) override { return notImplemented(r); }
  HRESULT WRT_ABI get_RecordedCalls(Result **r) override { return notImplemented(r); }

  HRESULT WRT_ABI GetFolderForUserAsync(
      abi::IUser *, int id, abi::IAsyncOperation__1_WRTStorageFolder_P **result) override {
    return startAsync<FolderRef>(
        result, [id](const Work<> &, ComPtr<Result> &folder) { return findKnown(id, folder); });
  }

private:
  std::u16string_view runtimeClassName() const override { return u"Windows.Storage.KnownFolders"; }

  static HRESULT known(int id, Result **result) {
    if (result == nullptr)
      return status::kPointer;
    *result = nullptr;
    ComPtr<Result> folder;
    const HRESULT status = findKnown(id, folder);
    return status < 0 ? status : folder.copyTo(result);
  }
};

const activation::Registration registration(u"Windows.Storage.KnownFolders",
                                            activation::makeFactory<KnownFolders>);

} // namespace
} // namespace wrt::components
