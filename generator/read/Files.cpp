#include "generator/read/Files.h"

#include <algorithm>
#include <filesystem>

namespace bridgegen {

std::vector<std::string> declarationFiles(const std::vector<std::string> &paths) {
  namespace fs = std::filesystem;
  std::vector<std::string> files;
  for (const std::string &path : paths) {
    if (!fs::is_directory(path)) {
      files.push_back(path);
      continue;
    }
    const size_t first = files.size();
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(path)) {
      if (entry.path().extension() == ".idl")
        files.push_back(entry.path().string());
    }
    std::sort(files.begin() + static_cast<std::ptrdiff_t>(first), files.end());
  }
  return files;
}

} // namespace bridgegen
