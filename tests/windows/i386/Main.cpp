// The host of the tests when they run natively: reports as the emulator does, without one.
#include "platform/arm/doubles/Host.h"

#include <cstdio>
#include <cstdlib>

namespace {

int checks = 0;
int failures = 0;

} // namespace

extern "C" {

void runTests();

void hostReport(const char *name, int passed) {
  ++checks;
  if (passed)
    return;
  ++failures;
  std::printf("FAILED %s\n", name);
}

void hostLog(const char *text) { std::puts(text); }

void hostEnd(const char *message) {
  std::printf("FAILED: %s\n", message);
  std::exit(1);
}
}

int main() {
  runTests();
  std::printf("%d checks, %d failed\n", checks, failures);
  return checks > 0 && failures == 0 ? 0 : 1;
}
