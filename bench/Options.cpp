#include "bench/Options.h"

#include "bench/Measurement.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>

namespace wrt::bench {

namespace {

constexpr int kWrongUsage = 2;
constexpr const char *kForBenchmark = "--benchmark_";

std::string checkVariant(const std::string &name) {
  const auto variants = allVariants();
  const bool is =
      std::ranges::any_of(variants, [&](const auto &each) { return each.name == name; });
  return is ? "" : "there is no variant '" + name + "', as in 'object in/bridge'";
}

} // namespace

std::optional<Options> readOptions(int argc, char **argv, int &status) {
  Options options;
  CLI::App app(
      "Measures every row as bridge call, as method written out by hand and as plain platform "
      "calls,\nside by side in one run: time, heap allocations and (by callgrind) "
      "instructions per call.",
      "wrt_bench");
  app.footer("Options of Google Benchmark go to it, as in --benchmark_filter=String.\n\n"
             "Exit status: 0 when all is well, 1 when something cannot be measured or written or\n"
             "--count finds too many, 2 for wrong usage.");
  app.allow_extras();
  app.add_option("--write", options.document, "Put the tables between their marks there")
      ->type_name("FILE")
      ->check(CLI::Validator(CLI::ExistingFile).description(""));
  app.add_option("--picture", options.picture, "Write a picture (SVG) of where the instructions go")
      ->type_name("FILE");
  app.add_option("--functions", options.functionsOf,
                 "Print the functions that run its instructions")
      ->type_name("VARIANT")
      ->check(CLI::Validator(checkVariant, ""));
  app.add_flag("--count", options.count,
               "Count messages and look-ups of classes; wants libwrt_counters.so\npreloaded");
  app.add_flag_callback(
      "--no-callgrind", [&] { options.usesCallgrind = false; }, "Leave the instructions out");
  app.add_flag("--under-callgrind", options.underCallgrind)->group("");
  try {
    app.parse(argc, argv);
    options.others = app.remaining();
    for (const std::string &other : options.others)
      if (!other.starts_with(kForBenchmark))
        throw CLI::ExtrasError({other});
    return options;
  } catch (const CLI::CallForHelp &) {
    std::cout << app.help();
    status = 0;
  } catch (const CLI::ParseError &error) {
    std::cerr << "wrt_bench: " << error.what() << "; 'wrt_bench --help' tells more\n";
    status = kWrongUsage;
  }
  return std::nullopt;
}

} // namespace wrt::bench
