#ifndef WRT_TESTS_FAULTS_KEPT_H
#define WRT_TESTS_FAULTS_KEPT_H

#include <string>
#include <vector>

namespace wrt::test::faults {

/// The list of outcomes that are meant. Each stands below the sentence of the document about kept
/// behaviour that says so, or below the reason why cells are left out:
///
///     > A sentence of that document.
///     CELL FUNCTION HOW KIND
///     - Why these are left out.
///     CELL
///
/// Fields may have `*` in them. A file that cannot be read, or has a sentence that the document has
/// not, ends the program.
class Kept {
public:
  Kept(const char *list, const char *document);

  bool isLeftOut(const std::string &cell);
  /// Whether `problem` is meant of the outcome of that name.
  bool has(const std::string &outcome, const std::string &problem);
  /// Prints the entries that nothing has asked for; how many there are.
  size_t reportMissing() const;

private:
  struct Entry {
    std::string pattern;
    bool isCell = false;
    bool isMet = false;
  };
  bool meets(const std::string &text, bool isCell);

  std::vector<Entry> entries_;
};

} // namespace wrt::test::faults

#endif
