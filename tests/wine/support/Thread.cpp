#include "tests/support/Thread.h"

#include "platform/linux/wine/WindowsFunctions.h"

namespace wrt::test {

namespace {

constexpr uint32_t kForever = 0xFFFFFFFF; // INFINITE (winbase.h)

uint32_t WRT_ABI run(void *argument) {
  // Destroyed here, on the thread.
  const std::unique_ptr<std::function<void()>> body(static_cast<std::function<void()> *>(argument));
  (*body)();
  return 0;
}

void close(void *handle) { wine::windows().CloseHandle(handle); }

} // namespace

Thread::Thread(std::function<void()> body) {
  auto *argument = new std::function<void()>(std::move(body));
  thread_.reset(wine::windows().CreateThread(nullptr, 0, run, argument, 0, nullptr), close);
}

void Thread::join() { wine::windows().WaitForSingleObject(thread_.get(), kForever); }

} // namespace wrt::test
