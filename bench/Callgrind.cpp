#include "bench/Callgrind.h"

#include <valgrind/callgrind.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace wrt::bench {

namespace {

constexpr int kCalls = 512;

/// The name under which a dump was made and the instructions it counts.
bool readDump(const std::filesystem::path &path, std::string &name, double &instructions) {
  constexpr std::string_view kTrigger = "desc: Trigger: Client Request: ";
  constexpr std::string_view kTotals = "totals: ";
  std::ifstream file(path);
  name.clear();
  instructions = 0;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(kTrigger))
      name = line.substr(kTrigger.size());
    else if (line.starts_with(kTotals))
      instructions = std::atof(line.c_str() + kTotals.size());
  }
  return !name.empty();
}

} // namespace

void runUnderCallgrind() {
  for (const Row &row : rows()) {
    for (const Variant &variant : variants(row)) {
      repeat(variant.operation, kCalls);
      CALLGRIND_ZERO_STATS;
      repeat(variant.operation, kCalls);
      CALLGRIND_DUMP_STATS_AT(variant.name.c_str());
    }
  }
}

std::string countInstructions(const std::string &program, Measurements &measurements) {
  namespace fs = std::filesystem;
  std::string folder = (fs::temp_directory_path() / "wrt-bench-XXXXXX").string();
  if (!mkdtemp(folder.data()))
    return "cannot make a folder for callgrind's output in " + fs::temp_directory_path().string();
  const std::string command = "valgrind -q --tool=callgrind --callgrind-out-file='" + folder +
                              "/out' '" + program + "' --under-callgrind > '" + folder +
                              "/log' 2>&1";
  std::string problem;
  if (std::system(command.c_str()) != 0) {
    problem = "this failed: " + command;
  } else {
    for (const fs::directory_entry &entry : fs::directory_iterator(folder)) {
      std::string name;
      double instructions = 0;
      if (readDump(entry.path(), name, instructions) && measurements.contains(name))
        measurements[name].instructions = instructions / kCalls;
    }
    fs::remove_all(folder);
  }
  return problem;
}

} // namespace wrt::bench
