#ifndef WRT_GENERATOR_SOURCE_H
#define WRT_GENERATOR_SOURCE_H

#include <string>
#include <string_view>

namespace bridgegen {

/// Whose declarations they are: of the library that is being made, or of one that is there.
enum class Origin { Own, Known };

/// A declarations file that has been read.
struct Source {
  std::string path; ///< as given on the command line, for messages
  std::string unit; ///< the file's stem, which names its outputs
  std::string text;
  Origin origin = Origin::Own;

  Source(std::string path, std::string text, Origin origin = Origin::Own);
  Source(const Source &) = delete;
  Source &operator=(const Source &) = delete;
};

/// A place in a source, which must outlive it; line and column count from 1, the column in bytes.
struct Position {
  const Source *source = nullptr;
  unsigned line = 0;
  unsigned column = 0;
};

/// A word of a source together with its place.
struct Name {
  std::string text;
  Position at;
};

/// The part of `path` between the last slash and the last dot.
std::string_view stem(std::string_view path);

} // namespace bridgegen

#endif
