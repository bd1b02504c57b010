// Measures the rows and prints, or writes into a file, their table.

#include "bench/Callgrind.h"
#include "bench/CountCheck.h"
#include "bench/Options.h"
#include "bench/Picture.h"
#include "bench/Report.h"

#include <benchmark/benchmark.h>

#include <cstdio>
#include <fstream>

using namespace wrt::bench;

namespace {

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
  int status = 0;
  const auto options = readOptions(argc, argv, status);
  if (!options)
    return status;
  if (options->underCallgrind) {
    runUnderCallgrind();
    return 0;
  }
  if (options->count)
    return checkCounts() ? 0 : 1;

  Measurements measurements;
  for (const Variant &variant : allVariants()) {
    measurements[variant.name].allocations = allocationsPerCall(variant.operation);
    benchmark::RegisterBenchmark(variant.name.c_str(), measureTime, variant.operation)
        ->Repetitions(9)
        ->ReportAggregatesOnly()
        ->MinTime(0.02);
  }
  // Repetitions of the variants take turns, so that a busy moment of the machine hits all of them.
  std::vector<std::string> others = options->others;
  others.insert(others.begin(), argv[0]);
  others.emplace_back("--benchmark_enable_random_interleaving=true");
  std::vector<char *> pointers;
  for (std::string &other : others)
    pointers.push_back(other.data());
  int count = static_cast<int>(pointers.size());
  benchmark::Initialize(&count, pointers.data());
  MedianReporter reporter(measurements);
  benchmark::RunSpecifiedBenchmarks(&reporter);
  if (options->usesCallgrind) {
    if (const std::string problem = countInstructions(argv[0], measurements); !problem.empty())
      return fail(problem);
  }

  if (!options->functionsOf.empty()) {
    const std::string list =
        functionList(options->functionsOf, measurements.at(options->functionsOf));
    std::fputs(list.c_str(), stdout);
    return 0;
  }
  if (!options->picture.empty()) {
    std::ofstream out(options->picture, std::ios::trunc);
    out << picture(measurements);
    if (!out.flush())
      return fail("cannot write " + options->picture);
  }
  if (options->document.empty()) {
    std::fputs((callTable(measurements) + "\n" + placeTable(measurements)).c_str(), stdout);
    return 0;
  }
  for (const auto &[mark, table] : {std::pair("calls", callTable(measurements)),
                                    std::pair("places", placeTable(measurements))}) {
    if (const std::string problem = writeTable(options->document, mark, table); !problem.empty())
      return fail(problem);
  }
  return 0;
}
