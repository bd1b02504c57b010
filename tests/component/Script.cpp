#include "tests/component/Script.h"

#include <mutex>

namespace wrt::test {

namespace {

std::mutex mutex;
std::vector<std::string> log;

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

Script &script() {
  static Script current;
  return current;
}

void resetScript() { script() = Script(); }

std::vector<std::string> crossings() {
  std::lock_guard lock(mutex);
  return log;
}

void recordCrossing(std::string text) {
  std::lock_guard lock(mutex);
  log.push_back(std::move(text));
}

void clearCrossings() {
  std::lock_guard lock(mutex);
  log.clear();
}

bool takeFirstCrossing(std::string &text) {
  std::lock_guard lock(mutex);
  if (log.empty())
    return false;
  text = std::move(log.front());
  log.erase(log.begin());
  return true;
}

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
