#include "platform/linux/ledger/WRTLedger.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>
#include <string>

namespace {

/// A cache line each, so that threads that count different things do not disturb each other.
struct alignas(64) Counter {
  std::atomic<int64_t> live{0};
};

constinit std::array<Counter, kWRTLedgerKindCount> counters;

constexpr std::array<const char *, kWRTLedgerKindCount> kNames{
    "objects", "delegates", "strings", "string handles", "task blocks", "blocks", "block variables",
};

} // namespace

void WRTLedgerAdd(WRTLedgerKind kind, int64_t amount) {
  counters[kind].live.fetch_add(amount, std::memory_order_relaxed);
}

WRTLedgerCounts WRTLedgerRead() {
  WRTLedgerCounts counts;
  for (size_t kind = 0; kind < kWRTLedgerKindCount; ++kind)
    counts.live[kind] = counters[kind].live.load(std::memory_order_relaxed);
  return counts;
}

WRTLedgerCounts WRTLedgerDifference(WRTLedgerCounts before, WRTLedgerCounts after) {
  for (size_t kind = 0; kind < kWRTLedgerKindCount; ++kind)
    after.live[kind] -= before.live[kind];
  return after;
}

bool WRTLedgerIsZero(WRTLedgerCounts counts) {
  return std::ranges::all_of(counts.live, [](int64_t count) { return count == 0; });
}

const char *WRTLedgerKindName(WRTLedgerKind kind) { return kNames[kind]; }

size_t WRTLedgerDescribe(WRTLedgerCounts counts, char *text, size_t size) {
  std::string description;
  for (size_t kind = 0; kind < kWRTLedgerKindCount; ++kind) {
    const int64_t count = counts.live[kind];
    if (count == 0)
      continue;
    if (!description.empty())
      description += ", ";
    description += kNames[kind];
    description += count > 0 ? " +" : " ";
    description += std::to_string(count);
  }
  if (description.empty())
    description = "nothing";
  if (size > 0) {
    const size_t length = std::min(size - 1, description.size());
    std::memcpy(text, description.data(), length);
    text[length] = '\0';
  }
  return description.size();
}
