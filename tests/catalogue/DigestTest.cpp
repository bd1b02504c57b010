// The exported surface is the one that was last agreed on: catalogue/surface.digest.

#include "tests/catalogue/CatalogueTable.h"

#include <gtest/gtest.h>

#include <set>

using namespace wrt;

TEST(SurfaceDigest, IsTheCommittedOne) {
  const auto linesOf = [](const char *path) {
    const auto lines = catalogue::readLines(path);
    return std::set(lines.begin(), lines.end());
  };
  const auto committed = linesOf(WRT_COMMITTED_DIGEST_FILE);
  const auto built = linesOf(WRT_DIGEST_FILE);
  std::string difference;
  for (const std::string &line : committed)
    if (!built.contains(line))
      difference += "-" + line + "\n";
  for (const std::string &line : built)
    if (!committed.contains(line))
      difference += "+" + line + "\n";
  EXPECT_TRUE(difference.empty())
      << "The surface of the library has changed:\n"
      << difference
      << "If it is meant to: cmake --build --preset linux --target update_surface_digest";
}
