#include "tests/component/Script.h"

#include <algorithm>
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

void recordCrossing(std::string text) {
  std::lock_guard lock(mutex);
  log.push_back(std::move(text));
}

std::vector<std::string> takeCrossings(size_t most) {
  std::lock_guard lock(mutex);
  const auto end = log.begin() + static_cast<ptrdiff_t>(std::min(most, log.size()));
  std::vector<std::string> taken(log.begin(), end);
  log.erase(log.begin(), end);
  return taken;
}

} // namespace wrt::test
