#include "generator/output/OutputSet.h"

#include <cassert>
#include <fstream>
#include <sstream>

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

} // namespace

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
  return written;
}

} // namespace bridgegen
