// The exported surface is the one that was last agreed on: catalogue/surface.digest.

#include "tests/catalogue/CatalogueTable.h"

#include <gtest/gtest.h>

using namespace wrt;

namespace {

std::map<std::string, std::string> byClass(const char *path) {
  std::map<std::string, std::string> lines;
  for (const std::string &line : catalogue::readLines(path))
    lines[line.substr(0, line.find(' '))] = line;
  return lines;
}

} // namespace

TEST(SurfaceDigest, IsTheCommittedOne) {
  const auto committed = byClass(WRT_COMMITTED_DIGEST_FILE);
  const auto built = byClass(WRT_DIGEST_FILE);
  std::string difference;
  for (const auto &[name, line] : committed) {
    const auto found = built.find(name);
    if (found == built.end() || found->second != line)
      difference += "-" + line + "\n";
    if (found != built.end() && found->second != line)
      difference += "+" + found->second + "\n";
  }
  for (const auto &[name, line] : built) {
    if (!committed.contains(name))
      difference += "+" + line + "\n";
  }
  EXPECT_TRUE(difference.empty())
      << "The surface of the library has changed:\n"
      << difference
      << "If it is meant to: cmake --build --preset linux --target update_surface_digest";
}
