#include "tests/component/Script.h"

#include <mutex>

namespace wrt::test {

namespace {

std::mutex mutex;
std::vector<std::string> log;

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

} // namespace wrt::test
