#include "tests/component/Script.h"

namespace wrt::test {

namespace {

void append(std::string &text, uint32_t point) {
  if (point < 0x80) {
    text += static_cast<char>(point);
  } else if (point < 0x800) {
    text += static_cast<char>(0xC0 | point >> 6);
    text += static_cast<char>(0x80 | (point & 0x3F));
  } else if (point < 0x10000) {
    text += static_cast<char>(0xE0 | point >> 12);
    text += static_cast<char>(0x80 | (point >> 6 & 0x3F));
    text += static_cast<char>(0x80 | (point & 0x3F));
  } else {
    text += static_cast<char>(0xF0 | point >> 18);
    text += static_cast<char>(0x80 | (point >> 12 & 0x3F));
    text += static_cast<char>(0x80 | (point >> 6 & 0x3F));
    text += static_cast<char>(0x80 | (point & 0x3F));
  }
}

} // namespace

std::string narrow(std::u16string_view text) {
  std::string result;
  for (size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    const bool isPair =
        (unit & 0xFC00) == 0xD800 && i + 1 < text.size() && (text[i + 1] & 0xFC00) == 0xDC00;
    if (isPair) {
      append(result, 0x10000 + ((unit & 0x3FFu) << 10) + (text[i + 1] & 0x3FFu));
      ++i;
    } else {
      append(result, (unit & 0xF800) == 0xD800 ? '?' : unit);
    }
  }
  return result;
}

} // namespace wrt::test
