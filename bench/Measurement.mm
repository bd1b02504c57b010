#include "bench/Measurement.h"

#include "bench/Allocations.h"

#import <Foundation/Foundation.h>

namespace wrt::bench {

std::vector<Variant> variants(const Row &row) {
  const std::string name = row.name;
  return {{name + "/bridge", row.bridge},
          {name + "/written", row.written},
          {name + "/platform", row.platform}};
}

void repeat(void (*operation)(), int count) {
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  for (int i = 0; i < count; ++i)
    operation();
  [pool release];
}

double allocationsPerCall(void (*operation)()) {
  constexpr int kCalls = 256;
  // The pool's own memory grows once and is then reused.
  repeat(operation, kCalls);
  const uint64_t before = allocations();
  repeat(operation, kCalls);
  const uint64_t pool = [] {
    const uint64_t start = allocations();
    repeat([] {}, kCalls);
    return allocations() - start;
  }();
  return static_cast<double>(allocations() - before - 2 * pool) / kCalls;
}

} // namespace wrt::bench
