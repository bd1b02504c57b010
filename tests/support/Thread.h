#ifndef WRT_TESTS_THREAD_H
#define WRT_TESTS_THREAD_H

#include <functional>
#include <memory>

namespace wrt::test {

/// A thread that may call the platform. Which kind that is depends on the platform: Wine's
/// functions run on threads of Wine's alone.
class Thread {
public:
  /// Starts `body`, which is destroyed on the thread when it has run.
  explicit Thread(std::function<void()> body);
  /// Waits for the end. Must be called once.
  void join();

private:
  std::shared_ptr<void> thread_;
};

} // namespace wrt::test

#endif
