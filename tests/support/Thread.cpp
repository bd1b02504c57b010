#include "tests/support/Thread.h"

#include <thread>

namespace wrt::test {

Thread::Thread(std::function<void()> body)
    : thread_(std::make_shared<std::thread>(std::move(body))) {}

void Thread::join() { static_cast<std::thread *>(thread_.get())->join(); }

} // namespace wrt::test
