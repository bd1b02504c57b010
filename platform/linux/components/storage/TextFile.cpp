#include "platform/linux/components/storage/TextFile.h"

#include "platform/linux/components/foundation/Text.h"
#include "platform/linux/components/storage/FileStatus.h"

namespace wrt::components {
namespace {

constexpr std::string_view kMarks[] = {"\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF"};

std::string_view markOf(TextEncoding encoding) { return kMarks[static_cast<int>(encoding)]; }

TextEncoding detect(std::string_view bytes) {
  for (const auto encoding : {TextEncoding::kUtf16LittleEndian, TextEncoding::kUtf16BigEndian}) {
    if (bytes.starts_with(markOf(encoding)))
      return encoding;
  }
  return TextEncoding::kUtf8;
}

/// Which of a unit's two bytes comes first.
int highByte(TextEncoding encoding) { return encoding == TextEncoding::kUtf16BigEndian ? 0 : 1; }

} // namespace

HRESULT readText(const Path &path, std::optional<TextEncoding> wanted, std::u16string *text) {
  std::string content;
  if (const HRESULT status = readFile(path, &content); status < 0)
    return status;
  std::string_view bytes = content;
  const TextEncoding encoding = wanted.value_or(detect(bytes));
  if (bytes.starts_with(markOf(encoding)))
    bytes.remove_prefix(markOf(encoding).size());
  if (encoding == TextEncoding::kUtf8) {
    auto decoded = decodeUtf8(bytes);
    if (!decoded)
      return kNoUnicodeTranslation;
    *text = std::move(*decoded);
    return status::kOk;
  }
  if (bytes.size() % 2 != 0)
    return kNoUnicodeTranslation;
  const int high = highByte(encoding);
  text->clear();
  text->reserve(bytes.size() / 2);
  for (size_t i = 0; i < bytes.size(); i += 2)
    *text += static_cast<char16_t>(static_cast<uint8_t>(bytes[i + high]) << 8 |
                                   static_cast<uint8_t>(bytes[i + 1 - high]));
  return status::kOk;
}

HRESULT writeText(const Path &path, TextEncoding encoding, std::u16string_view text, bool append) {
  if (encoding == TextEncoding::kUtf8)
    return writeFile(path, encodeUtf8(text), append);
  std::string bytes(append ? std::string_view() : markOf(encoding));
  for (const char16_t unit : text) {
    const char halves[] = {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    const int high = highByte(encoding);
    bytes += halves[1 - high];
    bytes += halves[high];
  }
  return writeFile(path, bytes, append);
}

std::vector<std::u16string> splitLines(std::u16string_view text) {
  std::vector<std::u16string> lines;
  while (!text.empty()) {
    const size_t end = std::min(text.find_first_of(u"\r\n"), text.size());
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(end);
    if (!text.empty())
      text.remove_prefix(text.starts_with(u"\r\n") ? 2 : 1);
  }
  return lines;
}

} // namespace wrt::components
