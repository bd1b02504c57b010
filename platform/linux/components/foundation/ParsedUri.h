#ifndef WRT_PARSED_URI_H
#define WRT_PARSED_URI_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace wrt::components {

/// The parts of an absolute URI in its canonical form: scheme and host in lower case, dot segments
/// resolved, a path of at least "/" behind a host. All text is UTF-8.
struct ParsedUri {
  std::string raw;      ///< as it was given
  std::string absolute; ///< canonical
  std::string display;  ///< canonical without user name and password
  std::string scheme;
  std::string userName;
  std::string password;
  std::string host;
  int32_t port = 0; ///< the scheme's own where none is given; 0 where that is not known
  std::string path;
  std::string query;    ///< with its "?", or empty
  std::string fragment; ///< with its "#", or empty
  /// Whether characters had to be escaped that no URI may have.
  bool suspicious = false;

  /// The path's extension with its dot, or empty.
  std::string extension() const;
};

/// Nothing for text that is no absolute URI.
std::optional<ParsedUri> parseUri(std::string_view text);
/// `relative` resolved against `base`; nothing when either is none.
std::optional<ParsedUri> combineUri(std::string_view base, std::string_view relative);

/// Text with everything but letters, digits and "-._~" as percent escapes, and back. Percent signs
/// that start no escape stand for themselves.
std::string escapeUriComponent(std::string_view text);
std::string unescapeUriComponent(std::string_view text);

} // namespace wrt::components

#endif
