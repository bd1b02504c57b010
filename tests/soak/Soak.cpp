// Runs the cells again and again in one process, and fails when what they leave behind adds up. A
// cell that announces a leftover in the first round is left out of those behind it. Usage: soak
// SECONDS

#include "tests/support/Cell.h"

#include "platform/linux/ledger/WRTLedger.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <malloc.h>
#include <unistd.h>

namespace {

/// Rounds before the first measurement: caches fill, threads start.
constexpr int kWarmUp = 3;
/// By how much the heap may grow behind those, in bytes: in a round, about twice what is known to
/// stay (docs/reliability.md), and now and then.
constexpr long kBound = 2 << 10;
constexpr long kOnce = 8 << 10;

/// Prints failures alone, and remembers which cells are for one round.
class Listener : public testing::EmptyTestEventListener {
public:
  void OnTestPartResult(const testing::TestPartResult &result) override {
    if (result.failed())
      std::printf("%s:%d: %s\n", result.file_name(), result.line_number(), result.message());
  }
  void OnTestEnd(const testing::TestInfo &info) override {
    const std::string name = std::string(info.test_suite_name()) + "." + info.name();
    if (info.result()->Failed())
      std::printf("soak: %s failed\n", name.c_str());
    if (wrt::test::announcesLeftover())
      announcing += (announcing.empty() ? "-" : ":") + name;
    ++ran;
  }

  std::string announcing;
  int ran = 0;
};

/// What freed blocks lie in a thread's cache counts as allocated, and is different in each round:
/// the program starts again without such caches.
void startWithoutCaches(char **argv) {
  constexpr const char *kName = "GLIBC_TUNABLES";
  constexpr const char *kNone = "glibc.malloc.tcache_count=0:glibc.malloc.mxfast=0";
  const char *now = std::getenv(kName);
  if (now && std::strcmp(now, kNone) == 0)
    return;
  setenv(kName, kNone, 1);
  execv("/proc/self/exe", argv);
  std::perror("soak: cannot start again");
}

/// What is allocated, in bytes.
long heap() {
  const auto use = mallinfo2();
  return static_cast<long>(use.uordblks + use.hblkhd);
}

} // namespace

int main(int argc, char **argv) {
  startWithoutCaches(argv);
  testing::InitGoogleTest(&argc, argv);
  const std::chrono::seconds told(argc == 2 ? std::atoi(argv[1]) : 0);
  if (told.count() <= 0) {
    std::fprintf(stderr, "Usage: soak SECONDS\n");
    return 2;
  }
  testing::GTEST_FLAG(death_test_style) = "threadsafe";
  auto &listeners = testing::UnitTest::GetInstance()->listeners();
  delete listeners.Release(listeners.default_result_printer());
  auto *listener = new Listener;
  listeners.Append(listener);

  const auto end = std::chrono::steady_clock::now() + told;
  long before = 0, now = 0;
  WRTLedgerCounts ledger{};
  int round = 0;
  for (; round <= kWarmUp + 1 || std::chrono::steady_clock::now() < end; ++round) {
    listener->ran = 0;
    if (RUN_ALL_TESTS() != 0)
      return 1;
    now = heap();
    if (round == 0)
      testing::GTEST_FLAG(filter) = testing::GTEST_FLAG(filter) + listener->announcing;
    if (round == kWarmUp) {
      before = now;
      ledger = WRTLedgerRead();
    }
  }
  char left[256];
  WRTLedgerDescribe(WRTLedgerDifference(ledger, WRTLedgerRead()), left, sizeof left);
  const bool grows =
      now - before > kBound * (round - kWarmUp) + kOnce || std::strcmp(left, "nothing") != 0;
  std::printf(
      "soak: %d rounds of %d cells; the heap went from %ld to %ld bytes, the ledger by %s%s\n",
      round, listener->ran, before, now, left, grows ? ": too much" : "");
  return grows;
}
