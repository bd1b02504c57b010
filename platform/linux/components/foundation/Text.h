/// Text between the platform's UTF-16 and the system's UTF-8. It is written here because iconv and
/// the standard library refuse lone surrogates, without which not every file name comes back.
#ifndef WRT_COMPONENTS_TEXT_H
#define WRT_COMPONENTS_TEXT_H

#include <WRTObjcBridge/WRTTypes.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace wrt::components {

/// UTF-16 for text that need not be UTF-8, as file names need not: a byte that is none becomes a
/// lone surrogate (U+DC00 plus the byte), which `toUtf8` turns back into it.
WRT_DLLEXPORT std::u16string toUtf16(std::string_view bytes);
/// The bytes behind a text made by `toUtf16`. Other lone surrogates become U+FFFD.
WRT_DLLEXPORT std::string toUtf8(std::u16string_view text);

/// UTF-8 for text that is to be read as text: every lone surrogate becomes U+FFFD.
std::string encodeUtf8(std::u16string_view text);

/// UTF-16 for UTF-8 that must be in order; nothing when it is not.
std::optional<std::u16string> decodeUtf8(std::string_view bytes);

inline std::filesystem::path toPath(std::u16string_view text) { return toUtf8(text); }
inline std::u16string textOf(const std::filesystem::path &path) {
  return toUtf16(std::string_view(path.native()));
}

} // namespace wrt::components

#endif
