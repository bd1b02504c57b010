// Measures the rows and prints, or writes into a file, their table.

#include "bench/Callgrind.h"
#include "bench/CountCheck.h"
#include "bench/Picture.h"
#include "bench/Report.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <fstream>

using namespace wrt::bench;

namespace {

constexpr const char *kUsage =
    R"(Usage: wrt_bench [--write FILE] [--picture FILE] [--functions VARIANT] [--no-callgrind]
                 [--benchmark_...]
       wrt_bench --count
  Measures every row as bridge call, as method written out by hand and as plain platform calls,
  side by side in one run: time, heap allocations and (by callgrind) instructions per call.
  --write FILE     puts the tables between their marks in FILE instead of printing them
  --picture FILE   writes a picture (SVG) of where the instructions go
  --functions V    prints the functions that run the instructions of V, as in "object in/bridge"
  --count          counts messages and look-ups of classes; wants libwrt_counters.so preloaded
  --no-callgrind   leaves the instructions out
  --benchmark_...  goes to Google Benchmark, as in --benchmark_filter=String
)";

/// Collects the median of each variant's repetitions.
class MedianReporter : public benchmark::BenchmarkReporter {
public:
  explicit MedianReporter(Measurements &measurements) : measurements_(measurements) {}

  bool ReportContext(const Context &) override { return true; }
  void ReportRuns(const std::vector<Run> &runs) override {
    for (const Run &run : runs) {
      if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median") {
        measurements_[run.run_name.function_name].nanoseconds =
            run.real_accumulated_time / static_cast<double>(run.iterations) * 1e9;
      }
    }
  }

private:
  Measurements &measurements_;
};

void measureTime(benchmark::State &state, void (*operation)()) {
  constexpr int kBatch = 256;
  while (state.KeepRunningBatch(kBatch))
    repeat(operation, kBatch);
}

int fail(const std::string &problem) {
  std::fprintf(stderr, "wrt_bench: %s\n", problem.c_str());
  return 1;
}

} // namespace

int main(int argc, char **argv) {
  std::string file;
  std::string pictureFile;
  std::string functionsOf;
  bool usesCallgrind = true;
  std::vector<char *> others{argv[0]};
  for (int i = 1; i < argc; ++i) {
    const std::string argument = argv[i];
    if (argument == "--under-callgrind") {
      runUnderCallgrind();
      return 0;
    }
    if (argument == "--count")
      return checkCounts() ? 0 : 1;
    if (argument == "--help" || argument == "-h") {
      std::fputs(kUsage, stdout);
      return 0;
    }
    if (argument == "--write" && i + 1 < argc)
      file = argv[++i];
    else if (argument == "--picture" && i + 1 < argc)
      pictureFile = argv[++i];
    else if (argument == "--functions" && i + 1 < argc)
      functionsOf = argv[++i];
    else if (argument == "--no-callgrind")
      usesCallgrind = false;
    else if (argument.starts_with("--benchmark_"))
      others.push_back(argv[i]);
    else
      return fail("unknown argument \"" + argument + "\"\n" + kUsage);
  }

  Measurements measurements;
  for (const Variant &variant : allVariants()) {
    measurements[variant.name].allocations = allocationsPerCall(variant.operation);
    benchmark::RegisterBenchmark(variant.name.c_str(), measureTime, variant.operation)
        ->Repetitions(9)
        ->ReportAggregatesOnly()
        ->MinTime(0.02);
  }
  // Repetitions of the variants take turns, so that a busy moment of the machine hits all of them.
  char interleave[] = "--benchmark_enable_random_interleaving=true";
  others.push_back(interleave);
  int count = static_cast<int>(others.size());
  benchmark::Initialize(&count, others.data());
  MedianReporter reporter(measurements);
  benchmark::RunSpecifiedBenchmarks(&reporter);
  if (usesCallgrind) {
    if (const std::string problem = countInstructions(argv[0], measurements); !problem.empty())
      return fail(problem);
  }

  if (!functionsOf.empty()) {
    const auto found = measurements.find(functionsOf);
    if (found == measurements.end())
      return fail("there is no variant \"" + functionsOf + "\"");
    std::fputs(functionList(functionsOf, found->second).c_str(), stdout);
    return 0;
  }
  if (!pictureFile.empty()) {
    std::ofstream out(pictureFile, std::ios::trunc);
    out << picture(measurements);
    if (!out.flush())
      return fail("cannot write " + pictureFile);
  }
  if (file.empty()) {
    std::fputs((callTable(measurements) + "\n" + placeTable(measurements)).c_str(), stdout);
    return 0;
  }
  for (const auto &[mark, table] : {std::pair("calls", callTable(measurements)),
                                    std::pair("places", placeTable(measurements))}) {
    if (const std::string problem = writeTable(file, mark, table); !problem.empty())
      return fail(problem);
  }
  return 0;
}
