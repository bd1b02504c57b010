#include "generator/read/Diagnostics.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace bridgegen {

void Diagnostics::error(Position at, std::string message) {
  errors_.push_back({at, std::move(message)});
}

void Diagnostics::print(std::ostream &out) const {
  std::vector<Error> sorted = errors_;
  const auto key = [](const Error &error) {
    return std::tie(error.at.source->path, error.at.line, error.at.column, error.message);
  };
  std::sort(sorted.begin(), sorted.end(),
            [&](const Error &a, const Error &b) { return key(a) < key(b); });
  // The same place may be read for several instances of a family.
  const auto end = std::unique(sorted.begin(), sorted.end(),
                               [&](const Error &a, const Error &b) { return key(a) == key(b); });
  std::for_each(sorted.begin(), end, [&](const Error &error) {
    out << error.at.source->path << ':' << error.at.line << ':' << error.at.column
        << ": error: " << error.message << '\n';
  });
}

std::string quoted(std::string_view text) { return "'" + std::string(text) + "'"; }

} // namespace bridgegen
