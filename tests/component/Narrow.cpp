#include "tests/component/Script.h"

namespace wrt::test {

namespace {

void append(std::string &text, uint32_t point) {
  static constexpr uint32_t kLeads[] = {0, 0xC0, 0xE0, 0xF0};
  int more = point < 0x80 ? 0 : point < 0x800 ? 1 : point < 0x10000 ? 2 : 3;
  text += static_cast<char>(kLeads[more] | point >> 6 * more);
  while (more-- > 0)
    text += static_cast<char>(0x80 | (point >> 6 * more & 0x3F));
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
