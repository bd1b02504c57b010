#ifndef WRT_SEMAPHORE_H
#define WRT_SEMAPHORE_H

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>

namespace wrt {

/// A counting semaphore that knows whether a signal found a waiting thread, which the standard one
/// does not tell.
class Semaphore {
public:
  using TimePoint = std::chrono::steady_clock::time_point;

  explicit Semaphore(long value) : value_(value) {}

  /// Adds one; whether that woke a waiting thread.
  bool signal() {
    std::lock_guard lock(mutex_);
    if (value_++ >= 0)
      return false;
    ++wakeUps_;
    condition_.notify_one();
    return true;
  }

  /// Takes one, waiting until `deadline` or, without one, as long as it takes; whether it was
  /// taken.
  bool wait(std::optional<TimePoint> deadline) {
    std::unique_lock lock(mutex_);
    if (--value_ >= 0)
      return true;
    const auto isWoken = [this] { return wakeUps_ > 0; };
    if (!deadline) {
      condition_.wait(lock, isWoken);
    } else if (!condition_.wait_until(lock, *deadline, isWoken)) {
      ++value_;
      return false;
    }
    --wakeUps_;
    return true;
  }

private:
  std::mutex mutex_;
  std::condition_variable condition_;
  /// What can be taken; when negative, how many threads wait without having been promised one.
  long value_;
  /// How many waiting threads have been promised one and have not taken it yet.
  long wakeUps_ = 0;
};

} // namespace wrt

#endif
