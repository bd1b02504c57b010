// Text in URIs, in file names and in text files: what goes there and back is what it was.

#include "platform/linux/components/foundation/ParsedUri.h"
#include "platform/linux/components/foundation/Text.h"
#include "platform/linux/components/storage/TextFile.h"

#include <cstdio>
#include <cstdlib>

namespace {

/// The only file there is.
std::string content;

} // namespace

namespace wrt::components {

HRESULT readFile(const Path &, std::string *bytes) {
  *bytes = content;
  return status::kOk;
}

HRESULT writeFile(const Path &, std::string_view bytes, bool append) {
  content = append ? content.append(bytes) : bytes;
  return status::kOk;
}

} // namespace wrt::components

namespace {

using namespace wrt::components;

void require(bool condition, const char *what) {
  if (condition)
    return;
  std::fprintf(stderr, "violated: %s\n", what);
  std::abort();
}

void checkUri(std::string_view text) {
  const std::string escaped = escapeUriComponent(text);
  require(unescapeUriComponent(escaped) == text, "an escaped component is unescaped to itself");
  const auto parsed = parseUri(text);
  if (!parsed)
    return;
  const auto again = parseUri(parsed->absolute);
  require(again.has_value(), "a canonical URI is one");
  require(again->absolute == parsed->absolute, "it stays as it is");
  require(again->scheme == parsed->scheme && again->host == parsed->host &&
              again->port == parsed->port && again->path == parsed->path &&
              again->query == parsed->query && again->fragment == parsed->fragment,
          "it has the same parts");
}

void checkCombined(std::string_view base, std::string_view relative) {
  const auto combined = combineUri(base, relative);
  if (combined)
    require(parseUri(combined->absolute).has_value(), "what is combined is a URI");
}

void checkFile(std::string_view bytes, std::optional<TextEncoding> encoding) {
  content = bytes;
  std::u16string text;
  if (readText({}, encoding, &text) < 0)
    return;
  std::u16string again;
  // Either half of a pair alone is text for UTF-16 only.
  const TextEncoding written = encoding.value_or(TextEncoding::kUtf16BigEndian);
  require(writeText({}, written, text, false) >= 0 && readText({}, written, &again) >= 0,
          "what was read can be written and read");
  // A mark in front of text that had one in front already is its first character.
  require(again == text || text.starts_with(u'\uFEFF'), "a text is read as it was written");
  for (const std::u16string &line : splitLines(text))
    require(line.find_first_of(u"\r\n") == line.npos, "a line has no end within it");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  const std::string_view bytes(reinterpret_cast<const char *>(data), size);
  require(toUtf8(toUtf16(bytes)) == bytes, "the bytes of a file's name survive");
  if (const auto text = decodeUtf8(bytes)) {
    require(encodeUtf8(*text) == bytes, "UTF-8 in order comes back");
    checkUri(bytes);
    if (const size_t middle = bytes.find('\n'); middle != bytes.npos)
      checkCombined(bytes.substr(0, middle), bytes.substr(middle + 1));
  }
  for (const auto encoding : {std::optional<TextEncoding>(), std::optional(TextEncoding::kUtf8),
                              std::optional(TextEncoding::kUtf16LittleEndian),
                              std::optional(TextEncoding::kUtf16BigEndian)})
    checkFile(bytes, encoding);
  return 0;
}
