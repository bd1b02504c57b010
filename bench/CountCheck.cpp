#include "bench/CountCheck.h"

#include "bench/Measurement.h"
#include "bench/counters/Counters.h"

#include <chrono>
#include <cstdio>
#include <dlfcn.h>
#include <thread>

namespace wrt::bench {

namespace {

constexpr int kCalls = 64;

using Counter = void(Counts *);

/// The counts once no other thread adds to them any more.
Counts settled(Counter *counter) {
  Counts counts;
  counter(&counts);
  for (;;) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
    Counts again;
    counter(&again);
    if (again.messages == counts.messages && again.lookUps == counts.lookUps)
      return counts;
    counts = again;
  }
}

/// What one call adds to the counts, once everything is warm.
Counts perCall(Counter *counter, void (*operation)()) {
  const auto measured = [&](int calls) {
    const Counts before = settled(counter);
    repeat(operation, calls);
    const Counts after = settled(counter);
    return Counts{after.messages - before.messages, after.lookUps - before.lookUps};
  };
  measured(kCalls);
  // The pool around the calls sends messages of its own.
  const Counts once = measured(kCalls);
  const Counts twice = measured(2 * kCalls);
  return {(twice.messages - once.messages) / kCalls, (twice.lookUps - once.lookUps) / kCalls};
}

} // namespace

bool checkCounts() {
  auto *counter = reinterpret_cast<Counter *>(dlsym(RTLD_DEFAULT, "wrtReadCounts"));
  if (!counter) {
    std::fprintf(stderr, "wrt_bench: --count needs libwrt_counters.so in LD_PRELOAD\n");
    return false;
  }
  int wrong = 0;
  for (const Row &row : rows()) {
    const Counts bridge = perCall(counter, row.bridge);
    const Counts platform = perCall(counter, row.platform);
    const uint64_t messages = bridge.messages - platform.messages;
    const bool isRight = messages == static_cast<uint64_t>(row.messages) && bridge.lookUps == 0;
    std::printf("%-24s %6llu messages, %d declared, %llu classes looked up%s\n", row.name,
                static_cast<unsigned long long>(messages), row.messages,
                static_cast<unsigned long long>(bridge.lookUps), isRight ? "" : "  WRONG");
    wrong += isRight ? 0 : 1;
  }
  std::printf("%zu rows, %d wrong\n", rows().size(), wrong);
  return wrong == 0;
}

} // namespace wrt::bench
