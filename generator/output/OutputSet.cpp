#include "generator/output/OutputSet.h"

#include <cassert>
#include <fstream>
#include <set>
#include <sstream>
#include <vector>

namespace bridgegen {

namespace {

bool hasContents(const std::filesystem::path &path, const std::string &text) {
  std::error_code status;
  if (std::filesystem::file_size(path, status) != text.size() || status)
    return false;
  std::ifstream file(path, std::ios::binary);
  std::ostringstream contents;
  contents << file.rdbuf();
  return file && contents.view() == text;
}

bool hasBanner(const std::filesystem::path &path) {
  std::string start(kBanner.size(), '\0');
  std::ifstream file(path, std::ios::binary);
  return file.read(start.data(), static_cast<std::streamsize>(start.size())) && start == kBanner;
}

} // namespace

void OutputSet::removeOthers(const std::filesystem::path &folder) const {
  std::set<std::filesystem::path> subfolders;
  for (const auto &[name, text] : files_)
    subfolders.insert(std::filesystem::path(name).parent_path());
  for (const std::filesystem::path &subfolder : subfolders) {
    std::vector<std::filesystem::path> others;
    for (const auto &entry : std::filesystem::directory_iterator(folder / subfolder)) {
      if (!files_.contains(subfolder / entry.path().filename()) && entry.is_regular_file() &&
          hasBanner(entry.path()))
        others.push_back(entry.path());
    }
    for (const std::filesystem::path &other : others)
      std::filesystem::remove(other);
  }
}

void OutputSet::add(std::string path, std::string text) {
  const bool isNew = files_.emplace(std::move(path), std::move(text)).second;
  assert(isNew);
  static_cast<void>(isNew);
}

size_t OutputSet::commit(const std::filesystem::path &folder) const {
  size_t written = 0;
  for (const auto &[name, text] : files_) {
    const std::filesystem::path path = folder / name;
    if (hasContents(path, text))
      continue;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file;
    file.exceptions(std::ios::failbit | std::ios::badbit);
    file.open(path, std::ios::binary | std::ios::trunc);
    file << text;
    file.close();
    ++written;
  }
  removeOthers(folder);
  return written;
}

} // namespace bridgegen
