#include "platform/linux/components/async/ThreadPool.h"

#include "platform/linux/memory/Allocation.h"

#include <condition_variable>
#include <deque>
#include <exception>
#include <mutex>
#include <thread>
#include <utility>

namespace wrt::implement {
namespace {

constexpr size_t kMaximumThreads = 32;

class ThreadPool {
public:
  void run(std::function<void()> work) {
    std::unique_lock lock(mutex_);
    queue_.push_back(std::move(work));
    if (idle_ < queue_.size() && threads_ < kMaximumThreads && startThread())
      ++threads_;
    if (threads_ == 0) {
      // Nobody would come for it: it is done here and now.
      work = std::move(queue_.back());
      queue_.pop_back();
      lock.unlock();
      work();
      return;
    }
    lock.unlock();
    workCame_.notify_one();
  }

  void wait() {
    std::unique_lock lock(mutex_);
    workEnded_.wait(lock, [this] { return queue_.empty() && busy_ == 0; });
  }

private:
  /// Whether there is another thread now.
  bool startThread() {
    const memory::FailuresAreCaught guard;
    try {
      std::thread([this] { serve(); }).detach();
      return true;
    } catch (const std::exception &) { // no thread to be had, or no memory for one
      return false;
    }
  }

  [[noreturn]] void serve() {
    std::unique_lock lock(mutex_);
    for (;;) {
      ++idle_;
      workCame_.wait(lock, [this] { return !queue_.empty(); });
      --idle_;
      ++busy_;
      std::function<void()> work = std::move(queue_.front());
      queue_.pop_front();
      lock.unlock();
      work();
      work = nullptr; // what it owns goes before anybody is told that it ended
      lock.lock();
      --busy_;
      if (queue_.empty() && busy_ == 0)
        workEnded_.notify_all();
    }
  }

  std::mutex mutex_;
  std::condition_variable workCame_;
  std::condition_variable workEnded_;
  std::deque<std::function<void()>> queue_;
  size_t threads_ = 0;
  size_t idle_ = 0;
  size_t busy_ = 0;
};

/// Never destroyed, as its threads live to the end of the process.
ThreadPool &pool() {
  static ThreadPool &instance = *new ThreadPool;
  return instance;
}

} // namespace

void runOnPool(std::function<void()> work) { pool().run(std::move(work)); }

void waitForPool() { pool().wait(); }

} // namespace wrt::implement
