#ifndef WRT_TEST_THREADS_H
#define WRT_TEST_THREADS_H

#include <latch>
#include <thread>
#include <vector>

namespace wrt::test {

/// Runs `work(index)` on `count` threads that start together, and waits for all of them.
template <class Work>
void onThreads(int count, Work work) {
  std::latch start(count);
  std::vector<std::jthread> threads;
  threads.reserve(static_cast<size_t>(count));
  for (int index = 0; index < count; ++index) {
    threads.emplace_back([&, index] {
      start.arrive_and_wait();
      work(index);
    });
  }
}

} // namespace wrt::test

#endif
