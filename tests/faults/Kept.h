#ifndef WRT_TESTS_FAULTS_KEPT_H
#define WRT_TESTS_FAULTS_KEPT_H

#include <cstdio>
#include <cstdlib>
#include <fnmatch.h>
#include <fstream>
#include <map>
#include <sstream>
#include <string>

namespace wrt::test::faults {

/// The list of outcomes that are meant. Each stands below the sentence of the document about kept
/// behaviour that says so, or below the reason why cells are left out:
///
///     > A sentence of that document.
///     CELL FUNCTION HOW KIND
///     - Why these are left out.
///     CELL
///
/// Fields may have `*` in them. A list without entries, or with a sentence that the document has
/// not, ends the program.
class Kept {
public:
  Kept(const char *list, const char *document) {
    std::ostringstream behaviour;
    behaviour << std::ifstream(document).rdbuf();
    std::ifstream file(list);
    for (std::string line; std::getline(file, line);) {
      if (line.starts_with("> ") && behaviour.view().find(line.substr(2)) == line.npos)
        end(document, line.substr(2));
      if (line.find_first_of("#>-") != 0 && !line.empty())
        isMet_[line] = false;
    }
    if (isMet_.empty())
      end(list, "what is kept");
  }

  /// Whether a cell is left out, or an outcome is meant: both by the fields of their entries.
  bool has(const std::string &fields) {
    bool met = false;
    for (auto &[pattern, isMet] : isMet_)
      if (fnmatch(pattern.c_str(), fields.c_str(), 0) == 0)
        met = isMet = true;
    return met;
  }
  /// Prints the entries that nothing has asked for; how many there are.
  size_t reportMissing() const {
    size_t missing = 0;
    for (const auto &[pattern, isMet] : isMet_)
      if (!isMet && ++missing)
        std::printf("faults: kept, but did not happen: %s\n", pattern.c_str());
    return missing;
  }

private:
  [[noreturn]] static void end(const char *file, const std::string &text) {
    std::fprintf(stderr, "faults: %s does not say \"%s\"\n", file, text.c_str());
    std::exit(2);
  }

  std::map<std::string, bool> isMet_;
};

} // namespace wrt::test::faults

#endif
