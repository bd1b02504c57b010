// The public headers as an application's compiler sees them. Usage: headertests INCLUDE_FOLDER
// COMPILER [FLAG...].

#include "tests/headers/Compiler.h"

#include <algorithm>
#include <atomic>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <memory>
#include <regex>
#include <thread>

using namespace wrt::test;

namespace {

std::unique_ptr<const Compiler> compiler;

struct Job {
  std::string header;
  std::string language;
  Compilation outcome;
};

/// `WRTSupport/WRTSupport.h`: all headers of the library that the header is of.
std::string umbrellaOf(const std::string &header) {
  const std::string library = header.substr(0, header.find('/'));
  return library + "/" + library + ".h";
}

/// Each header in Objective-C; in Objective-C++ all of a library at once.
std::vector<Job> allJobs() {
  std::vector<Job> jobs;
  for (const std::string &header : headersIn(compiler->includeFolder())) {
    jobs.push_back({header, "objective-c", {}});
    if (header == umbrellaOf(header))
      jobs.push_back({header, "objective-c++", {}});
  }
  return jobs;
}

/// Types do without Foundation, and those that import it do so on their own. The others have it
/// from the root class's header, which is checked.
Foundation foundationOf(const std::string &header) {
  std::ifstream file(compiler->includeFolder() / header);
  const std::string text{std::istreambuf_iterator(file), {}};
  const bool isObjective = text.find("\n@") != text.npos;
  const bool imports = text.find("<Foundation/Foundation.h>") != text.npos;
  return isObjective && !imports ? Foundation::Precompiled : Foundation::Own;
}

/// Compiled once, as many at a time as there are processors.
const std::vector<Job> &compiled() {
  static const std::vector<Job> jobs = [] {
    std::vector<Job> all = allJobs();
    std::atomic<size_t> next = 0;
    const auto work = [&] {
      for (size_t i; (i = next++) < all.size();)
        all[i].outcome =
            compiler->compileAlone(all[i].header, all[i].language, foundationOf(all[i].header));
    };
    std::vector<std::jthread> workers;
    for (unsigned i = 0; i < std::max(1U, std::thread::hardware_concurrency()); ++i)
      workers.emplace_back(work);
    workers.clear();
    return all;
  }();
  return jobs;
}

/// What a source that includes the header alone reads of the library's headers.
std::set<std::string> readBy(const std::string &header) {
  for (const Job &job : compiled()) {
    if (job.header == header)
      return job.outcome.headers;
  }
  return {};
}

TEST(Headers, CompileAlone) {
  ASSERT_FALSE(compiled().empty());
  for (const Job &job : compiled()) {
    EXPECT_TRUE(job.outcome.succeeded) << job.header << " as " << job.language << ":\n"
                                       << job.outcome.messages;
    EXPECT_TRUE(job.outcome.headers.contains(job.header)) << job.header;
    EXPECT_TRUE(foundationOf(job.header) == Foundation::Own ||
                job.outcome.headers.contains("WRTObjcBridge/WRTUnknownBridge.h"))
        << job.header << " does not read Foundation";
  }
}

TEST(Headers, TheUmbrellaReachesEveryHeaderAndNoneTheUmbrella) {
  for (const Job &job : compiled()) {
    const std::string umbrella = umbrellaOf(job.header);
    EXPECT_TRUE(readBy(umbrella).contains(job.header)) << job.header;
    EXPECT_TRUE(job.header == umbrella || !job.outcome.headers.contains(umbrella)) << job.header;
  }
}

TEST(Headers, AUnitThatAdoptsNothingReadsNoOtherUnit) {
  const std::set<std::string> expected = {"WRTObjcBridge/WRTInspectableBridge.h",
                                          "WRTObjcBridge/WRTInterfaceProxy.h",
                                          "WRTObjcBridge/WRTTypes.h",
                                          "WRTObjcBridge/WRTUnknownBridge.h",
                                          "WRTObjcBridge/types/Windows.UI.Popups.h",
                                          "WRTObjcBridge/Windows.UI.Popups.h"};
  EXPECT_EQ(expected, readBy("WRTObjcBridge/Windows.UI.Popups.h"));
}

TEST(Headers, DeclareEveryProtocolOnce) {
  static const std::regex declaration(R"(^@protocol (\w+)( <\w+>)?$)");
  std::map<std::string, int> protocols;
  for (const std::string &header : headersIn(compiler->includeFolder())) {
    std::ifstream file(compiler->includeFolder() / header);
    std::smatch match;
    for (std::string line; std::getline(file, line);) {
      if (std::regex_match(line, match, declaration))
        ++protocols[match[1]];
    }
  }
  EXPECT_FALSE(protocols.empty());
  for (const auto &[name, count] : protocols)
    EXPECT_EQ(1, count) << name;
}

} // namespace

int main(int count, char **arguments) {
  testing::InitGoogleTest(&count, arguments);
  if (count < 3) {
    std::fprintf(stderr, "usage: headertests INCLUDE_FOLDER COMPILER [FLAG...]\n");
    return 2;
  }
  compiler = std::make_unique<const Compiler>(
      arguments[1], std::vector<std::string>(arguments + 2, arguments + count));
  return RUN_ALL_TESTS();
}
