#ifndef WRT_GENERATOR_DIAGNOSTICS_H
#define WRT_GENERATOR_DIAGNOSTICS_H

#include "generator/read/Source.h"

#include <ostream>
#include <vector>

namespace bridgegen {

/// The errors found so far. Reading and checking go on after an error as far as they can, so that
/// one run shows as many as possible.
class Diagnostics {
public:
  void error(Position at, std::string message);
  bool hasErrors() const { return !errors_.empty(); }
  /// Writes one line per error, `file:line:column: error: message`, in the order of the places.
  void print(std::ostream &out) const;

private:
  struct Error {
    Position at;
    std::string message;
  };
  std::vector<Error> errors_;
};

/// `'text'`, the way messages show what stands in a file.
std::string quoted(std::string_view text);

} // namespace bridgegen

#endif
