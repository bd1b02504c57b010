#include "platform/linux/components/foundation/ParsedUri.h"

#include <algorithm>
#include <charconv>
#include <uriparser/Uri.h>

namespace wrt::components {
namespace {

/// What the URI library parsed, with the text it points into.
class UriHolder {
public:
  UriHolder() = default;
  UriHolder(const UriHolder &) = delete;
  UriHolder &operator=(const UriHolder &) = delete;
  ~UriHolder() {
    if (filled_)
      uriFreeUriMembersA(&uri_);
  }

  bool parse(std::string_view text) {
    text_ = text;
    // The library frees its own members when parsing fails.
    const char *end = text_.data() + text_.size();
    filled_ = uriParseSingleUriExA(&uri_, text_.data(), end, nullptr) == URI_SUCCESS;
    return filled_;
  }
  bool resolve(const UriHolder &relative, const UriHolder &base) {
    filled_ = uriAddBaseUriA(&uri_, &relative.uri_, &base.uri_) == URI_SUCCESS;
    return filled_;
  }
  bool normalize() {
    constexpr unsigned kParts = URI_NORMALIZE_SCHEME | URI_NORMALIZE_HOST | URI_NORMALIZE_PATH;
    return uriNormalizeSyntaxExA(&uri_, kParts) == URI_SUCCESS;
  }
  const UriUriA &get() const { return uri_; }

private:
  UriUriA uri_{};
  std::string text_;
  bool filled_ = false;
};

std::string_view viewOf(const UriTextRangeA &range) {
  return range.first == nullptr
             ? std::string_view()
             : std::string_view(range.first, static_cast<size_t>(range.afterLast - range.first));
}

/// Escapes what no URI may have; existing escapes stay.
std::string escapeIllegal(std::string_view text) {
  constexpr std::string_view kIllegal = " \"<>\\^`{|}";
  constexpr char kDigits[] = "0123456789ABCDEF";
  std::string result;
  for (const char c : text) {
    const auto byte = static_cast<uint8_t>(c);
    if (byte > 0x20 && byte < 0x7F && kIllegal.find(c) == kIllegal.npos) {
      result += c;
      continue;
    }
    result += {'%', kDigits[byte >> 4], kDigits[byte & 15]};
  }
  return result;
}

int32_t defaultPort(std::string_view scheme) {
  constexpr std::pair<std::string_view, int32_t> kPorts[] = {
      {"http", 80}, {"https", 443}, {"ftp", 21}, {"ws", 80}, {"wss", 443}};
  for (const auto &[name, port] : kPorts) {
    if (name == scheme)
      return port;
  }
  return 0;
}

std::string pathOf(const UriUriA &uri, bool hasHost) {
  std::string path;
  for (const UriPathSegmentA *segment = uri.pathHead; segment != nullptr; segment = segment->next)
    (path += '/') += viewOf(segment->text);
  if (path.empty())
    return hasHost || uri.absolutePath ? "/" : "";
  return hasHost || uri.absolutePath ? path : path.substr(1);
}

std::optional<ParsedUri> describe(UriHolder &holder) {
  if (!holder.normalize())
    return std::nullopt;
  const UriUriA &uri = holder.get();
  ParsedUri result;
  result.scheme = viewOf(uri.scheme);
  if (result.scheme.empty())
    return std::nullopt;
  const std::string_view user = viewOf(uri.userInfo);
  const size_t colon = user.find(':');
  result.userName = user.substr(0, colon);
  if (colon != user.npos)
    result.password = user.substr(colon + 1);
  result.host = viewOf(uri.hostText);
  if (uri.hostData.ip6 != nullptr || uri.hostData.ipFuture.first != nullptr)
    result.host = "[" + result.host + "]";
  result.port = defaultPort(result.scheme);
  const std::string_view port = viewOf(uri.portText);
  constexpr int32_t kLastPort = 65535;
  const auto [_, error] = std::from_chars(port.data(), port.data() + port.size(), result.port);
  if (!port.empty() && (error != std::errc() || result.port > kLastPort))
    return std::nullopt;
  // "file:///x" has an empty host, which the library tells from none by its place in the text.
  const bool hasHost = uri.hostText.first != nullptr;
  result.path = pathOf(uri, hasHost);
  if (uri.query.first != nullptr)
    (result.query = '?') += viewOf(uri.query);
  if (uri.fragment.first != nullptr)
    (result.fragment = '#') += viewOf(uri.fragment);

  const std::string_view slashes = hasHost ? "//" : "";
  std::string rest = result.host;
  if (!port.empty() && result.port != defaultPort(result.scheme))
    (rest += ':') += std::to_string(result.port);
  // Without a host a path of "//x" would be read as one.
  if (!hasHost && result.path.starts_with("//"))
    rest += "/.";
  rest += result.path + result.query + result.fragment;
  result.display = result.scheme + ":";
  (result.display += slashes) += rest;
  result.absolute = result.scheme + ":";
  result.absolute += slashes;
  if (!user.empty())
    (result.absolute += user) += '@';
  result.absolute += rest;
  return result;
}

/// Converts what stands between the characters U+0000 of `text`, which end a text for uriparser,
/// and puts `null` in their places.
template <class Convert>
std::string convertPieces(std::string_view text, std::string_view null, const Convert &convert) {
  std::string result;
  for (;;) {
    const size_t end = text.find('\0');
    result += convert(text.substr(0, end));
    if (end == text.npos)
      return result;
    result += null;
    text.remove_prefix(end + 1);
  }
}

} // namespace

std::string ParsedUri::extension() const {
  const std::string_view name = std::string_view(path).substr(path.rfind('/') + 1);
  const size_t dot = name.rfind('.');
  return dot == name.npos ? std::string() : std::string(name.substr(dot));
}

std::optional<ParsedUri> parseUri(std::string_view text) {
  const std::string escaped = escapeIllegal(text);
  UriHolder holder;
  if (!holder.parse(escaped))
    return std::nullopt;
  auto result = describe(holder);
  if (result) {
    result->raw = text;
    result->suspicious = escaped != text;
  }
  return result;
}

std::optional<ParsedUri> combineUri(std::string_view base, std::string_view relative) {
  UriHolder parsedBase, parsedRelative, combined;
  if (!parsedBase.parse(escapeIllegal(base)) || !parsedRelative.parse(escapeIllegal(relative)) ||
      !combined.resolve(parsedRelative, parsedBase))
    return std::nullopt;
  auto result = describe(combined);
  if (result)
    result->raw = result->absolute;
  return result;
}

std::string escapeUriComponent(std::string_view text) {
  return convertPieces(text, "%00", [](std::string_view piece) {
    std::string result(piece.size() * 3 + 1, '\0'); // each byte may become an escape
    const char *end =
        uriEscapeExA(piece.data(), piece.data() + piece.size(), result.data(), false, false);
    result.resize(static_cast<size_t>(end - result.data()));
    return result;
  });
}

std::string unescapeUriComponent(std::string_view text) {
  return convertPieces(text, std::string_view("\0", 1), [](std::string_view piece) {
    std::string result(piece);
    const char *end = uriUnescapeInPlaceExA(result.data(), false, URI_BR_DONT_TOUCH);
    result.resize(static_cast<size_t>(end - result.data()));
    return result;
  });
}

} // namespace wrt::components
