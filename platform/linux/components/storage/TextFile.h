#ifndef WRT_TEXT_FILE_H
#define WRT_TEXT_FILE_H

#include "platform/linux/components/storage/FileSystem.h"

#include <abi/Windows.Storage.Streams.abi.h>
#include <optional>
#include <string>
#include <vector>

namespace wrt::components {

enum class TextEncoding {
  kUtf8 = WRTUnicodeEncodingUtf8,
  kUtf16LittleEndian = WRTUnicodeEncodingUtf16LE,
  kUtf16BigEndian = WRTUnicodeEncodingUtf16BE
};

/// The text in a file, without its byte order mark. Without an encoding the mark tells which it is,
/// and without a mark it is UTF-8. Bytes that are no text fail with
/// `kNoUnicodeTranslation`.
HRESULT readText(const Path &path, std::optional<TextEncoding> encoding, std::u16string *text);
/// Replaces the file's content by the text, or adds it. UTF-16 begins with a byte order mark.
HRESULT writeText(const Path &path, TextEncoding encoding, std::u16string_view text, bool append);

/// Lines, whichever of CR LF, LF and CR ends them.
std::vector<std::u16string> splitLines(std::u16string_view text);

} // namespace wrt::components

#endif
