#include "bench/Measurement.h"

#include "bench/Allocations.h"

#import <Foundation/Foundation.h>

@interface WRTBenchReceiver : NSObject
- (void)receive;
@end

@implementation WRTBenchReceiver
- (void)receive {
}
@end

namespace wrt::bench {

namespace {

constexpr int kMessages = 16;
constexpr const char *kWithMessages = "messages/sent";
constexpr const char *kWithoutMessages = "messages/none";

void sendMessages() {
  static WRTBenchReceiver *const receiver = [[WRTBenchReceiver alloc] init];
#pragma clang loop unroll(full)
  for (int i = 0; i < kMessages; ++i)
    [receiver receive];
}

} // namespace

std::vector<Variant> variants(const Row &row) {
  const std::string name = row.name;
  return {{name + "/bridge", row.bridge},
          {name + "/written", row.written},
          {name + "/platform", row.platform}};
}

std::vector<Variant> allVariants() {
  std::vector<Variant> all{{kWithMessages, sendMessages}, {kWithoutMessages, [] {}}};
  for (const Row &row : rows()) {
    const std::vector<Variant> some = variants(row);
    all.insert(all.end(), some.begin(), some.end());
  }
  return all;
}

Measurement oneMessage(const Measurements &measurements) {
  const Measurement &with = measurements.at(kWithMessages);
  const Measurement &without = measurements.at(kWithoutMessages);
  return {(with.nanoseconds - without.nanoseconds) / kMessages,
          0,
          (with.instructions - without.instructions) / kMessages,
          {}};
}

Measurement floorOf(const Row &row, const Measurements &measurements) {
  const Measurement message = oneMessage(measurements);
  Measurement floor = measurements.at(std::string(row.name) + "/platform");
  floor.nanoseconds += row.messages * message.nanoseconds;
  floor.instructions += row.messages * message.instructions;
  return floor;
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
