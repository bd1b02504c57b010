#include "bench/Callgrind.h"

#include "bench/CallgrindDump.h"

#include <valgrind/callgrind.h>

#include <cstdlib>
#include <filesystem>

namespace wrt::bench {

namespace {

constexpr int kCalls = 512;

} // namespace

void runUnderCallgrind() {
  for (const Variant &variant : allVariants()) {
    repeat(variant.operation, kCalls);
    CALLGRIND_ZERO_STATS;
    repeat(variant.operation, kCalls);
    CALLGRIND_DUMP_STATS_AT(variant.name.c_str());
  }
}

std::string countInstructions(const std::string &program, Measurements &measurements) {
  namespace fs = std::filesystem;
  std::string folder = (fs::temp_directory_path() / "wrt-bench-XXXXXX").string();
  if (!mkdtemp(folder.data()))
    return "cannot make a folder for callgrind's output in " + fs::temp_directory_path().string();
  const std::string command =
      "valgrind -q --tool=callgrind --compress-strings=no --callgrind-out-file='" + folder +
      "/out' '" + program + "' --under-callgrind > '" + folder + "/log' 2>&1";
  std::string problem;
  if (std::system(command.c_str()) != 0) {
    problem = "this failed: " + command;
  } else {
    for (const fs::directory_entry &entry : fs::directory_iterator(folder)) {
      const CallgrindDump dump = readDump(entry.path());
      const auto found = measurements.find(dump.name);
      if (found == measurements.end())
        continue;
      for (const auto &[place, instructions] : dump.instructions) {
        found->second.places[place] = instructions / kCalls;
        found->second.instructions += instructions / kCalls;
      }
    }
    fs::remove_all(folder);
  }
  return problem;
}

} // namespace wrt::bench
