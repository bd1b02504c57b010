#include "tests/faults/Kept.h"

#include <cstdio>
#include <cstdlib>
#include <fnmatch.h>
#include <fstream>
#include <iterator>

namespace wrt::test::faults {

namespace {

std::string contentOf(const char *path) {
  std::ifstream file(path);
  if (!file) {
    std::fprintf(stderr, "faults: cannot read %s\n", path);
    std::exit(2);
  }
  return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

Kept::Kept(const char *list, const char *document) {
  const std::string behaviour = contentOf(document);
  std::ifstream file(list);
  if (!file)
    contentOf(list);
  bool isCell = false;
  for (std::string line; std::getline(file, line);) {
    if (line.empty() || line[0] == '#')
      continue;
    if (line.starts_with("> ") && behaviour.find(line.substr(2)) == std::string::npos) {
      std::fprintf(stderr, "faults: %s does not say \"%s\"\n", document, line.c_str() + 2);
      std::exit(2);
    }
    if (line.starts_with("> ") || line.starts_with("- "))
      isCell = line[0] == '-';
    else
      entries_.push_back({line, isCell});
  }
}

bool Kept::meets(const std::string &text, bool isCell) {
  bool met = false;
  for (Entry &entry : entries_)
    if (entry.isCell == isCell && fnmatch(entry.pattern.c_str(), text.c_str(), 0) == 0)
      met = entry.isMet = true;
  return met;
}

bool Kept::isLeftOut(const std::string &cell) { return meets(cell, true); }

bool Kept::has(const std::string &outcome, const std::string &problem) {
  // The number of the call is no matter of the entry's.
  return meets(outcome.substr(0, outcome.rfind(' ') + 1) +
                   problem.substr(0, problem.find_first_of(" :")),
               false);
}

size_t Kept::reportMissing() const {
  size_t missing = 0;
  for (const Entry &entry : entries_) {
    if (entry.isMet)
      continue;
    ++missing;
    std::printf("faults: kept, but did not happen: %s\n", entry.pattern.c_str());
  }
  return missing;
}

} // namespace wrt::test::faults
