#ifndef WRT_GENERATOR_OUTPUT_SET_H
#define WRT_GENERATOR_OUTPUT_SET_H

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

namespace bridgegen {

/// What the first line of a unit's output begins with; its declarations file stands behind.
inline constexpr std::string_view kBanner = "// Made by bridgegen from ";

/// All files of a run in memory, until everything is known to be right.
class OutputSet {
public:
  /// Adds a file; `path` is relative to the output folder and new.
  void add(std::string path, std::string text);

  const std::map<std::string, std::string> &files() const { return files_; }

  /// Writes each file below `folder` whose contents differ from what is there, and makes folders as
  /// needed. Files with the banner that stand beside this set's and are none of it are removed:
  /// what made them is gone. Answers how many were written; throws
  /// `std::filesystem::filesystem_error` or `std::ios_base::failure` when the file system does not
  /// allow it.
  size_t commit(const std::filesystem::path &folder) const;

private:
  void removeOthers(const std::filesystem::path &folder) const;

  std::map<std::string, std::string> files_;
};

} // namespace bridgegen

#endif
