#include "tests/exhaustive/Catalogue.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <regex>
#include <set>
#include <sstream>

namespace wrt::test {

namespace {

/// The hand-written classes, whose methods have tests of their own.
const std::set<std::string> kCoreClasses = {"WRTUnknownBridge",      "WRTInspectableBridge",
                                            "WRTInterfaceProxy",     "WRTClassProxy",
                                            "WRTIInspectableBridge", "WRTHSTRINGBridge"};

std::ifstream open(const std::string &path) {
  std::ifstream file(path);
  if (!file) {
    std::fprintf(stderr, "exhaustive: cannot read %s\n", path.c_str());
    std::exit(2);
  }
  return file;
}

GUID parseGuid(const std::string &text) {
  GUID guid{};
  unsigned bytes[8];
  std::sscanf(text.c_str(), "%8x-%4hx-%4hx-%2x%2x-%2x%2x%2x%2x%2x%2x", &guid.Data1, &guid.Data2,
              &guid.Data3, &bytes[0], &bytes[1], &bytes[2], &bytes[3], &bytes[4], &bytes[5],
              &bytes[6], &bytes[7]);
  for (int i = 0; i < 8; ++i)
    guid.Data4[i] = static_cast<unsigned char>(bytes[i]);
  return guid;
}

} // namespace

std::vector<CatalogueMethod> readCatalogue(const char *path) {
  std::vector<CatalogueMethod> methods;
  std::ifstream file = open(path);
  for (std::string line; std::getline(file, line);) {
    std::vector<std::string> columns;
    std::istringstream stream(line);
    for (std::string column; std::getline(stream, column, '\t');)
      columns.push_back(column);
    if (columns.size() != 7) {
      std::fprintf(stderr, "exhaustive: %s: a line has %zu columns: %s\n", path, columns.size(),
                   line.c_str());
      std::exit(2);
    }
    if (columns[0] == "class" || kCoreClasses.contains(columns[0]))
      continue;
    methods.push_back({columns[0], columns[1] == "+", columns[2], columns[3], columns[4],
                       columns[5], columns[6] == "-" ? -1 : std::atoi(columns[6].c_str())});
  }
  return methods;
}

std::map<std::string, GUID> readDeclaredIids(const std::vector<std::string> &paths) {
  static const std::regex declaration(
      R"(\binterface\s+(\w+)(?:\s+as\s+(\w+))?\s*\{([0-9a-fA-F-]{36})\})");
  std::map<std::string, GUID> iids;
  for (const std::string &path : paths) {
    std::stringstream buffer;
    buffer << open(path).rdbuf();
    const std::string text = buffer.str();
    for (std::sregex_iterator match(text.begin(), text.end(), declaration), end; match != end;
         ++match)
      iids[(*match)[2].matched ? (*match)[2] : (*match)[1]] = parseGuid((*match)[3]);
  }
  return iids;
}

} // namespace wrt::test
