#include "platform/linux/components/foundation/Text.h"

#include <cstdint>

namespace wrt::components {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char16_t kByteSurrogates = 0xDC00;

struct Decoded {
  char32_t character;
  size_t size; ///< in bytes; 0 when the bytes are no UTF-8
};

/// The first character of `bytes`, which are not empty. Refuses overlong forms, surrogates and what
/// is beyond U+10FFFF.
Decoded decodeFirst(std::string_view bytes) {
  const auto at = [&](size_t i) { return static_cast<uint8_t>(bytes[i]); };
  const uint8_t first = at(0);
  if (first < 0x80)
    return {first, 1};
  const size_t size = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || bytes.size() < size)
    return {0, 0};
  char32_t character = first & (0xFF >> (size + 1));
  for (size_t i = 1; i < size; ++i) {
    if ((at(i) & 0xC0) != 0x80)
      return {0, 0};
    character = character << 6 | (at(i) & 0x3F);
  }
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = character >= 0xD800 && character < 0xE000;
  if (character < kSmallest[size] || character > 0x10FFFF || surrogate)
    return {0, 0};
  return {character, size};
}

void append(std::u16string &text, char32_t character) {
  if (character < 0x10000) {
    text += static_cast<char16_t>(character);
    return;
  }
  character -= 0x10000;
  text += static_cast<char16_t>(0xD800 + (character >> 10));
  text += static_cast<char16_t>(0xDC00 + (character & 0x3FF));
}

void append(std::string &bytes, char32_t character) {
  if (character < 0x80) {
    bytes += static_cast<char>(character);
  } else if (character < 0x800) {
    bytes += static_cast<char>(0xC0 | character >> 6);
    bytes += static_cast<char>(0x80 | (character & 0x3F));
  } else if (character < 0x10000) {
    bytes += static_cast<char>(0xE0 | character >> 12);
    bytes += static_cast<char>(0x80 | (character >> 6 & 0x3F));
    bytes += static_cast<char>(0x80 | (character & 0x3F));
  } else {
    bytes += static_cast<char>(0xF0 | character >> 18);
    bytes += static_cast<char>(0x80 | (character >> 12 & 0x3F));
    bytes += static_cast<char>(0x80 | (character >> 6 & 0x3F));
    bytes += static_cast<char>(0x80 | (character & 0x3F));
  }
}

/// UTF-8; lone surrogates that stand for bytes become these if `restoresBytes`.
std::string encode(std::u16string_view text, bool restoresBytes) {
  const auto isHigh = [](char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; };
  const auto isLow = [](char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; };
  std::string bytes;
  bytes.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    if (isHigh(unit) && i + 1 < text.size() && isLow(text[i + 1]))
      append(bytes, 0x10000 + (char32_t(unit - 0xD800) << 10) + char32_t(text[++i] - 0xDC00));
    else if (restoresBytes && unit >= kByteSurrogates + 0x80 && unit <= kByteSurrogates + 0xFF)
      bytes += static_cast<char>(unit - kByteSurrogates);
    else
      append(bytes, isHigh(unit) || isLow(unit) ? kReplacement : char32_t(unit));
  }
  return bytes;
}

} // namespace

std::u16string toUtf16(std::string_view bytes) {
  std::u16string text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    const auto [character, size] = decodeFirst(bytes);
    if (size == 0)
      text += static_cast<char16_t>(kByteSurrogates + static_cast<uint8_t>(bytes[0]));
    else
      append(text, character);
    bytes.remove_prefix(size == 0 ? 1 : size);
  }
  return text;
}

std::optional<std::u16string> decodeUtf8(std::string_view bytes) {
  std::u16string text;
  text.reserve(bytes.size());
  while (!bytes.empty()) {
    const auto [character, size] = decodeFirst(bytes);
    if (size == 0)
      return std::nullopt;
    append(text, character);
    bytes.remove_prefix(size);
  }
  return text;
}

std::string toUtf8(std::u16string_view text) { return encode(text, true); }

std::string encodeUtf8(std::u16string_view text) { return encode(text, false); }

} // namespace wrt::components
