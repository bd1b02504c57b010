#ifndef WRT_GENERATOR_METADATA_NAMES_H
#define WRT_GENERATOR_METADATA_NAMES_H

#include <algorithm>
#include <cctype>
#include <string_view>

namespace bridgegen::metadata {

/// A word of letters, digits and underscores as declarations have it.
inline bool isIdentifier(std::string_view name) {
  return !name.empty() && !std::isdigit(static_cast<unsigned char>(name[0])) &&
         std::all_of(name.begin(), name.end(),
                     [](unsigned char c) { return c < 128 && (std::isalnum(c) || c == '_'); });
}

/// An identifier that means nothing else where declarations have types.
inline bool isTypeWord(std::string_view name) {
  for (const std::string_view word : {"void", "event", "reserved", "return", "out", "fill"}) {
    if (name == word)
      return false;
  }
  return isIdentifier(name);
}

/// Such words with dots between.
inline bool isDotted(std::string_view name) {
  for (size_t dot = name.find('.'); dot != name.npos; dot = name.find('.')) {
    if (!isTypeWord(name.substr(0, dot)))
      return false;
    name.remove_prefix(dot + 1);
  }
  return isTypeWord(name);
}

} // namespace bridgegen::metadata

#endif
