#include "platform/linux/implement/EventSource.h"

#include <atomic>

namespace wrt::implement {

int64_t nextEventToken() {
  static constinit std::atomic<int64_t> next{(int64_t{1} << 32) + 1};
  return next.fetch_add(1, std::memory_order_relaxed);
}

} // namespace wrt::implement
