#include "tests/catalogue/CatalogueTable.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace wrt::test {

namespace {

[[noreturn]] void fail(const char *path, const char *problem) {
  std::fprintf(stderr, "%s: %s\n", path, problem);
  std::exit(2);
}

CatalogueTable readTable(const char *path) {
  CatalogueTable table;
  for (const std::string &line : readLines(path)) {
    const std::vector<std::string> fields = split(line, '\t');
    if (fields.size() != 7)
      fail(path, "a line has not seven fields");
    CatalogueMethod method{fields[0], fields[1][0], fields[2], fields[3], fields[4], fields[5], {}};
    if (fields[6] != "-")
      method.slot = std::stoi(fields[6]);
    table[method.className].push_back(std::move(method));
  }
  return table;
}

std::vector<SurfaceClass> readSurface(const char *path) {
  std::vector<SurfaceClass> classes;
  for (const std::string &line : readLines(path)) {
    const std::vector<std::string> words = split(line, ' ');
    if (words.size() != 5)
      fail(path, "a line has not five words");
    classes.push_back({words[0], words[1], words[2], std::stoul(words[3])});
  }
  return classes;
}

} // namespace

const CatalogueTable &catalogueTable() {
  static const CatalogueTable table = readTable(WRT_CATALOGUE_FILE);
  return table;
}

const std::vector<SurfaceClass> &surfaceClasses() {
  static const std::vector<SurfaceClass> classes = readSurface(WRT_DIGEST_FILE);
  return classes;
}

std::vector<std::string> readLines(const char *path) {
  std::ifstream file(path);
  if (!file)
    fail(path, "cannot be read");
  std::vector<std::string> lines;
  for (std::string line; std::getline(file, line);)
    lines.push_back(line);
  return lines;
}

std::vector<std::string> split(const std::string &text, char separator) {
  std::vector<std::string> pieces;
  std::istringstream stream(text);
  for (std::string piece; std::getline(stream, piece, separator);)
    pieces.push_back(piece);
  return pieces;
}

} // namespace wrt::test
