#ifndef WRT_TESTS_GENERATED_H
#define WRT_TESTS_GENERATED_H

#include "generator/Generate.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <unistd.h>
#include <vector>

namespace bridgegen::test {

/// What bridgegen makes of declarations, without any file.
struct Generated {
  std::map<std::string, std::string> files; ///< by path; empty after an error
  std::map<std::string, std::string> pages; ///< the source of the reference
  std::string errors;                       ///< as they are printed
};

/// Generates from files of these paths and contents; with `known`, as an add-on of prefix `Contoso`
/// to a product that has that, from `known.idl`.
Generated generateFrom(const std::vector<std::pair<std::string, std::string>> &sources,
                       const std::string &known = "");

/// A test with a folder that is made on demand and gone afterwards.
class FolderTest : public testing::Test {
protected:
  FolderTest() { std::filesystem::remove_all(folder_); }
  ~FolderTest() override { std::filesystem::remove_all(folder_); }

  const std::filesystem::path folder_ =
      std::filesystem::temp_directory_path() / ("bridgegen-" + std::to_string(getpid()));
};

/// The whole file.
std::string readFile(const std::string &path);

} // namespace bridgegen::test

#endif
