// Lets every call of the platform by the library go wrong once, in every cell of the matrix, each
// time in a process of its own. What is looked at is how that ends, not what the cell expects: no
// crash, no hang, no exception, nothing left behind that was not announced, and the error variable
// as it is meant. What is meant to end otherwise stands in the list of kept outcomes.
//
//   faults_tests KEPT BEHAVIOUR [ONE_IN [TEXT]]
//
// With ONE_IN about so many of the outcomes are tried, the same ones each time; with TEXT those of
// the cells that have it in their names.

#include "tests/faults/Fault.h"
#include "tests/faults/Kept.h"
#include "tests/support/Cell.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <random>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

using namespace wrt::test;
using namespace wrt::test::faults;

namespace {

/// Seconds. A process that takes longer hangs, also where others keep the machine busy.
constexpr unsigned kLimit = 20;
/// Of calls of one function in one cell: cells that repeat themselves show nothing new behind it.
constexpr unsigned kMostCalls = 24;

struct Outcome {
  std::string cell;
  const Fault *fault = &kFaults[0];
  unsigned call = 0; ///< 0: nothing goes wrong
  bool isGivenUp = false;
  std::string problem = {};

  auto operator<=>(const Outcome &) const = default;
  /// Without the number of the call.
  std::string name() const {
    const char *how = fault->strike == Strike::Failure ? " fails" : " null";
    return call == 0 ? cell : cell + " " + fault->function + how;
  }
};

/// A process that runs a cell, and where it tells what and prints into.
class Child {
public:
  Child()
      : report_(static_cast<Report *>(mmap(nullptr, sizeof(Report), PROT_READ | PROT_WRITE,
                                           MAP_SHARED | MAP_ANONYMOUS, -1, 0))),
        output_(memfd_create("output", 0)) {}

  void start(Outcome &outcome) {
    outcome_ = &outcome;
    std::memset(report_, 0, sizeof *report_);
    if (ftruncate(output_, 0) != 0 || lseek(output_, 0, SEEK_SET) != 0)
      std::abort();
    pid_ = fork();
    if (pid_ != 0)
      return;
    alarm(kLimit);
    dup2(output_, 1);
    dup2(output_, 2);
    strike(*outcome.fault, outcome.call, *report_);
    const std::string end = endOf(allCells().at(outcome.cell));
    report_->isGivenUp &= end.starts_with("raised");
    if (!end.empty() && !report_->isGivenUp)
      tell(end);
    _exit(0);
  }

  const Report &report() const { return *report_; }

  /// The outcome if this is the process that has ended like that; null otherwise.
  Outcome *take(pid_t ended, int status) {
    if (ended != pid_)
      return nullptr;
    outcome_->isGivenUp = report_->isGivenUp;
    outcome_->problem = status != 0 ? end(status) : report_->problem;
    return outcome_;
  }

private:
  /// What a process that did not end by itself has printed last.
  std::string end(int status) {
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGALRM)
      return "hangs";
    char text[1 << 14] = {};
    const off_t size = lseek(output_, 0, SEEK_END);
    if (pread(output_, text, sizeof text - 1,
              std::max<off_t>(0, size - static_cast<off_t>(sizeof text - 1))) < 0)
      return "crashes";
    const std::string printed = text;
    const size_t line = printed.find("no memory for ");
    if (WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT && line != std::string::npos)
      return "gives up: " + printed.substr(line);
    return "crashes with " + std::to_string(status) + ":\n" + printed;
  }

  Report *report_;
  int output_;
  Outcome *outcome_ = nullptr;
  pid_t pid_ = 0;
};

/// Runs all of them, two at a time, and hands each to `done` with its report.
template <class Done>
void run(std::vector<Outcome> &outcomes, Done done) {
  Child children[2];
  size_t next = 0;
  const auto start = [&](Child &child) {
    if (next < outcomes.size())
      child.start(outcomes[next++]);
  };
  for (Child &child : children)
    start(child);
  int status = 0;
  for (pid_t ended; (ended = wait(&status)) > 0;)
    for (Child &child : children)
      if (const Outcome *outcome = child.take(ended, status)) {
        done(*outcome, child.report());
        start(child);
      }
}

} // namespace

int main(int argc, char **argv) {
  if (argc < 3) {
    std::fprintf(stderr, "usage: %s KEPT BEHAVIOUR [ONE_IN [TEXT]]\n", argv[0]);
    return 2;
  }
  const unsigned long oneIn = argc > 3 ? std::stoul(argv[3]) : 1;
  const std::string only = argc > 4 ? argv[4] : "";
  Kept kept(argv[1], argv[2]);
  testing::InitGoogleTest(&argc, argv);
  watchErrors();

  std::vector<Outcome> scenarios;
  for (const auto &[name, body] : allCells())
    if (name.find(only) != name.npos && !kept.has(name))
      scenarios.push_back({name});
  size_t wrong = 0, givenUp = 0;
  const auto judge = [&](const Outcome &outcome) {
    givenUp += outcome.isGivenUp;
    const std::string kind = outcome.problem.substr(0, outcome.problem.find_first_of(" :"));
    if (kind.empty() || kept.has(outcome.name() + " " + kind))
      return;
    ++wrong;
    std::printf("faults: %s %u: %s\n", outcome.name().c_str(), outcome.call,
                outcome.problem.c_str());
    std::fflush(stdout);
  };

  std::vector<Outcome> outcomes;
  std::mt19937 random(20260901);
  run(scenarios, [&](const Outcome &scenario, const Report &report) {
    judge(scenario);
    for (const Fault &fault : kFaults) {
      const unsigned calls = std::min(report.calls[&fault - kFaults], kMostCalls);
      for (unsigned call = 1; call <= calls; ++call)
        outcomes.push_back({scenario.cell, &fault, call});
    }
  });
  std::ranges::sort(outcomes);
  std::erase_if(outcomes, [&](const Outcome &) { return random() % oneIn != 0; });
  run(outcomes, [&](const Outcome &outcome, const Report &) { judge(outcome); });
  if (oneIn == 1 && only.empty())
    wrong += kept.reportMissing();
  rusage used{};
  getrusage(RUSAGE_CHILDREN, &used);
  std::printf("faults: %zu outcomes of %zu scenarios, %zu wrong\n", outcomes.size(),
              scenarios.size(), wrong);
  std::printf("%zu given up by the cell itself; %ld s of processor time\n", givenUp,
              used.ru_utime.tv_sec + used.ru_stime.tv_sec);
  std::fflush(stdout);
  // Without the check for leaks: the watch is never taken down, and the ledger has judged the rest.
  _exit(wrong != 0);
}
