#include "tests/exhaustive/DeclaredIids.h"

#include "tests/catalogue/CatalogueTable.h"

#include <cstdio>
#include <regex>

namespace wrt::test {

namespace {

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

std::map<std::string, GUID> readDeclaredIids(const std::vector<std::string> &paths) {
  static const std::regex declaration(
      R"(\binterface\s+(\w+)(?:\s+as\s+(\w+))?\s*\{([0-9a-fA-F-]{36})\})");
  std::map<std::string, GUID> iids;
  for (const std::string &path : paths) {
    std::string text;
    for (const std::string &line : catalogue::readLines(path))
      text += line + "\n";
    for (std::sregex_iterator match(text.begin(), text.end(), declaration), end; match != end;
         ++match)
      iids[(*match)[2].matched ? (*match)[2] : (*match)[1]] = parseGuid((*match)[3]);
  }
  return iids;
}

} // namespace wrt::test
