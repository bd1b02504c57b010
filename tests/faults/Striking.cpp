#include "tests/faults/Fault.h"

#include <atomic>
#include <csignal>
#include <cstring>
#include <dlfcn.h>
#include <execinfo.h>
#include <link.h>
#include <pthread.h>
#include <string_view>
#include <unistd.h>

// The sanitizers' own, where they are there: called before they end the process.
extern "C" void __sanitizer_set_death_callback(void (*callback)()) __attribute__((weak));

namespace wrt::test::faults {

namespace {

pthread_t mainThread;
const Fault *planned;
unsigned plannedCall;
Report *current;

Strike ask(const char *function, const void *caller) {
  const bool isMemory = std::string_view(function) == "operator new";
  if (ownerOf(caller) != (isMemory ? Owner::Platform : Owner::Library) ||
      (isMemory && !isWatching()))
    return Strike::None;
  Strike strike = Strike::None;
  for (const Fault &fault : kFaults) {
    if (std::strcmp(fault.function, function) != 0)
      continue;
    const unsigned call =
        std::atomic_ref(current->calls[&fault - kFaults]).fetch_add(1, std::memory_order_relaxed) +
        1;
    if (&fault != planned || call != plannedCall)
      continue;
    strike = fault.strike;
    noteStrike(fault);
  }
  return strike;
}

/// Whether the library has no part in what happens now: it does not stand on the stack, or what
/// stands nearer is a block of the cell's that the platform has it call. On threads of the
/// platform's the cell has to be there.
bool isOfTheCell() {
  void *addresses[128];
  const int count = backtrace(addresses, std::size(addresses));
  bool isOfCell = false;
  for (int i = 3; i < count; ++i) { // behind this, the handler and what the kernel calls it by
    if (ownerOf(addresses[i]) == Owner::Library) {
      while (i < count && ownerOf(addresses[i]) == Owner::Library)
        ++i;
      return isOfCell && i < count && ownerOf(addresses[i]) == Owner::Platform;
    }
    Dl_info info;
    isOfCell |= dladdr(addresses[i], &info) && std::strstr(info.dli_fname, "faults_tests");
  }
  return isOfCell || pthread_equal(pthread_self(), mainThread);
}

void giveUpIfOfTheCell() {
  if (!isOfTheCell())
    return;
  current->isGivenUp = true;
  _exit(0);
}

void endCrash(int signal) {
  giveUpIfOfTheCell();
  void *addresses[32];
  backtrace_symbols_fd(addresses, backtrace(addresses, std::size(addresses)), 2);
  std::signal(signal, SIG_DFL);
  raise(signal);
}

} // namespace

Owner ownerOf(const void *address) {
  dl_find_object found;
  if (_dl_find_object(const_cast<void *>(address), &found) != 0)
    return Owner::Other;
  const std::string_view file = found.dlfo_link_map->l_name;
  const auto isOf = [&](std::string_view name) { return file.find(name) != file.npos; };
  if (isOf("/libWRTObjcBridge_zorvex.") || isOf("/libWRTSupport."))
    return Owner::Library;
  return isOf("/libWRTBridge_zorvex.") ? Owner::Platform : Owner::Other;
}

void tell(const std::string &problem) {
  if (current && current->problem[0] == '\0')
    problem.copy(current->problem, sizeof current->problem - 1);
}

void strike(const Fault &fault, unsigned call, Report &report) {
  planned = &fault;
  plannedCall = call;
  current = &report;
  mainThread = pthread_self();
  for (int signal : {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT})
    std::signal(signal, endCrash);
  if (__sanitizer_set_death_callback)
    __sanitizer_set_death_callback(giveUpIfOfTheCell);
  setStriker(ask);
}

} // namespace wrt::test::faults

// Stands in front of the runtime's: whose is what is raised last.
extern "C" __attribute__((visibility("default"), noreturn)) void
objc_exception_throw(void *exception) {
  using namespace wrt::test::faults;
  static auto *forward =
      reinterpret_cast<void (*)(void *)>(dlsym(RTLD_NEXT, "objc_exception_throw"));
  if (current)
    current->isGivenUp = isOfTheCell();
  forward(exception);
  __builtin_unreachable();
}

// Stands in front of the platform's: the end that the library chooses, told from a crash.
extern "C" __attribute__((visibility("default"), noreturn)) void XPAbortWithBacktrace() {
  wrt::test::faults::tell("aborts on purpose");
  _exit(0);
}
