#include "generator/read/Guid.h"

namespace bridgegen {

namespace {

int digit(char c) {
  if (c >= '0' && c <= '9')
    return c - '0';
  if (c >= 'a' && c <= 'f')
    return c - 'a' + 10;
  if (c >= 'A' && c <= 'F')
    return c - 'A' + 10;
  return -1;
}

bool hasDashBefore(size_t byte) { return byte == 4 || byte == 6 || byte == 8 || byte == 10; }

std::string hex(const Guid &guid, size_t first, size_t last, const char *digits) {
  std::string text;
  for (size_t i = first; i < last; ++i) {
    text += digits[guid.bytes[i] >> 4];
    text += digits[guid.bytes[i] & 15];
  }
  return text;
}

std::string dashed(const Guid &guid, const char *digits) {
  std::string text;
  for (size_t i = 0; i < guid.bytes.size(); ++i) {
    if (hasDashBefore(i))
      text += '-';
    text += hex(guid, i, i + 1, digits);
  }
  return text;
}

constexpr const char *kLower = "0123456789abcdef";
constexpr const char *kUpper = "0123456789ABCDEF";

} // namespace

std::optional<Guid> Guid::parse(std::string_view text) {
  Guid guid;
  size_t at = 0;
  for (size_t i = 0; i < guid.bytes.size(); ++i) {
    if (hasDashBefore(i)) {
      if (at >= text.size() || text[at] != '-')
        return std::nullopt;
      ++at;
    }
    if (at + 2 > text.size())
      return std::nullopt;
    const int high = digit(text[at++]);
    const int low = digit(text[at++]);
    if (high < 0 || low < 0)
      return std::nullopt;
    guid.bytes[i] = static_cast<uint8_t>(high * 16 + low);
  }
  return at == text.size() ? std::optional(guid) : std::nullopt;
}

std::string Guid::lower() const { return dashed(*this, kLower); }

std::string Guid::upper() const { return dashed(*this, kUpper); }

std::string Guid::initializer() const {
  std::string text = "{0x" + hex(*this, 0, 4, kUpper) + ", 0x" + hex(*this, 4, 6, kUpper) + ", 0x" +
                     hex(*this, 6, 8, kUpper) + ", {";
  for (size_t i = 8; i < bytes.size(); ++i)
    text += (i == 8 ? "0x" : ", 0x") + hex(*this, i, i + 1, kUpper);
  return text + "}}";
}

} // namespace bridgegen
