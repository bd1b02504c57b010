// The public headers as an application's compiler sees them. Usage: headertests INCLUDE_FOLDER
// COMPILER [FLAG...].

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <regex>
#include <set>
#include <sstream>
#include <thread>
#include <unistd.h>

namespace fs = std::filesystem;

namespace {

/// `WRTSupport/WRTSupport.h`: all headers of the library that the header is of.
std::string umbrellaOf(const std::string &header) {
  const std::string library = header.substr(0, header.find('/'));
  return library + "/" + library + ".h";
}

/// The folder that holds `WRTObjcBridge/`.
fs::path includeFolder;
/// The compiler as an application calls it, quoted for the shell; `-Werror` is among its flags.
std::string compiler;

constexpr const char *kObjC = "objective-c";
constexpr const char *kObjCpp = "objective-c++";

/// What tells the headers that the library itself reads them.
const std::string kOwn = "-DWRT_BUILDING_BRIDGE ";

/// The argument as one word of the shell's.
std::string shellWord(const std::string &argument) {
  std::string text = "'";
  for (const char c : argument)
    text += c == '\'' ? "'\\''" : std::string(1, c);
  return text + "' ";
}

/// A compilation of `source` behind the headers, and what became of it.
struct Job {
  std::vector<std::string> headers;
  std::string language; ///< as `-x` takes it
  std::string options;
  std::string source = "/dev/null";

  std::string messages = "not compiled"; ///< of a failure
  /// The library's headers that were read, relative to the include folder. Every initializer would
  /// have to name it otherwise.
  std::set<std::string> read = {}; // NOLINT(readability-redundant-member-init)

  Job &compile();
};

Job &Job::compile() {
  std::string line =
      "exec " + compiler + "-fsyntax-only -MMD -MF - -MT headers " + options + " -x " + language;
  for (const std::string &header : headers)
    line += " -include " + shellWord(header);
  FILE *pipe = popen((line + " " + shellWord(source) + " 2>&1").c_str(), "r");
  messages.clear();
  std::array<char, 4096> buffer;
  while (const size_t count = pipe ? fread(buffer.data(), 1, buffer.size(), pipe) : 0)
    messages.append(buffer.data(), count);
  if (!pipe || pclose(pipe) != 0) {
    messages += "failed";
    return *this;
  }
  // Warnings are errors, so after a success there are no messages: the files that were read, with
  // backslashes at the ends of the lines.
  std::istringstream words(std::exchange(messages, ""));
  const std::string ours = includeFolder.string() + "/";
  for (std::string word; words >> word;)
    if (word.starts_with(ours))
      read.insert(word.substr(ours.size()));
  return *this;
}

/// Every header below the folder, relative to it, in order.
std::vector<std::string> allHeaders() {
  std::vector<std::string> headers;
  for (const auto &entry : fs::recursive_directory_iterator(includeFolder))
    if (entry.path().extension() == ".h")
      headers.push_back(fs::relative(entry.path(), includeFolder).string());
  std::ranges::sort(headers);
  return headers;
}

/// Compiles as many at a time as there are processors.
void compileAll(std::vector<Job> &jobs) {
  std::atomic<size_t> next = 0;
  const auto work = [&] {
    for (size_t i; (i = next++) < jobs.size();)
      jobs[i].compile();
  };
  std::vector<std::jthread> workers;
  for (unsigned i = 0; i < std::max(1U, std::thread::hardware_concurrency()); ++i)
    workers.emplace_back(work);
}

/// Where files of this run go; gone afterwards.
const fs::path &scratch() {
  static const struct Folder {
    fs::path path = fs::temp_directory_path() / ("headertests-" + std::to_string(getpid()));
    Folder() { fs::create_directory(path); }
    ~Folder() { fs::remove_all(path); }
  } folder;
  return folder.path;
}

/// The option that uses Foundation, which is compiled once.
std::string foundation(const std::string &language) {
  const std::string file = shellWord((scratch() / (language + ".pch")).string());
  static std::set<std::string> made;
  if (made.insert(file).second)
    EXPECT_EQ(0, std::system(("echo '#import <Foundation/Foundation.h>' | " + compiler + "-x " +
                              language + "-header - -o " + file)
                                 .c_str()));
  return "-include-pch " + file;
}

/// Whether the header's first include is Foundation or one that begins so: it may then be compiled
/// behind Foundation as well.
bool beginsWithFoundation(const std::string &header) {
  static const std::regex include(R"(#(?:import|include) <(.*)>)");
  std::ifstream file(includeFolder / header);
  std::smatch match;
  for (std::string line; std::getline(file, line);)
    if (std::regex_match(line, match, include))
      return match[1] == "Foundation/Foundation.h" || beginsWithFoundation(match[1]);
  return false;
}

/// As applications are usually compiled.
constexpr const char *kUsualWarnings = "-Wno-everything -Wall -Wextra -Wno-unused-function ";

/// Every header alone, as an application reads it and as the library's own units do. (Every warning
/// there is is asked for where all headers are compiled at once.)
const std::vector<Job> &compiled() {
  static const std::vector<Job> jobs = [] {
    std::vector<Job> all;
    for (const std::string &header : allHeaders()) {
      const bool begins = beginsWithFoundation(header);
      for (const auto &[language, options] : {std::pair(kObjC, std::string()), {kObjCpp, kOwn}})
        all.push_back(
            {{header}, language, kUsualWarnings + options + (begins ? foundation(language) : "")});
    }
    compileAll(all);
    return all;
  }();
  return jobs;
}

/// What a source that includes the header alone reads of the library's headers.
std::set<std::string> readBy(const std::string &header) {
  for (const Job &job : compiled()) {
    if (job.headers[0] == header)
      return job.read;
  }
  return {};
}

/// The classes and protocols (`class WRTUriBridge`) that a header mentions, and those that it
/// declares; categories do neither.
struct Names {
  std::set<std::string> mentioned;
  std::multiset<std::string> declared;
};

const std::map<std::string, Names> &namesByHeader() {
  static const std::map<std::string, Names> all = [] {
    static const std::regex pattern(R"(^@(class|interface|protocol) (\w+)\b(?! \()(;?).*$)");
    std::map<std::string, Names> read;
    for (const std::string &header : allHeaders()) {
      std::ifstream file(includeFolder / header);
      std::smatch match;
      for (std::string line; std::getline(file, line);) {
        if (!std::regex_match(line, match, pattern))
          continue;
        const std::string name = (match[1] == "protocol" ? "protocol " : "class ") + match[2].str();
        if (match[3].length() > 0)
          read[header].mentioned.insert(name);
        else
          read[header].declared.insert(name);
      }
    }
    return read;
  }();
  return all;
}

void expectSuccess(const std::vector<Job> &jobs) {
  ASSERT_FALSE(jobs.empty());
  for (const Job &job : jobs)
    EXPECT_EQ("", job.messages) << testing::PrintToString(job.headers) << " as " << job.language;
}

TEST(Headers, CompileAlone) {
  expectSuccess(compiled());
  for (const Job &job : compiled())
    EXPECT_TRUE(job.read.contains(job.headers[0])) << job.headers[0];
}

TEST(Headers, CompileInAnyOrder) {
  std::vector<Job> jobs;
  for (unsigned seed = 1; seed <= 20; ++seed) {
    const char *language = seed % 2 == 0 ? kObjC : kObjCpp;
    jobs.push_back({allHeaders(), language, foundation(language)});
    std::ranges::shuffle(jobs.back().headers, std::mt19937(seed));
  }
  compileAll(jobs);
  expectSuccess(jobs);
}

TEST(Headers, DeclareWhatTheyMention) {
  for (const auto &[header, names] : namesByHeader()) {
    std::set<std::string> declared;
    for (const std::string &read : readBy(header)) {
      if (const auto found = namesByHeader().find(read); found != namesByHeader().end())
        declared.insert(found->second.declared.begin(), found->second.declared.end());
    }
    for (const std::string &name : names.mentioned)
      EXPECT_TRUE(declared.contains(name)) << header << " leaves " << name << " undeclared";
  }
}

TEST(Headers, DeclareEverythingOnce) {
  std::map<std::string, int> counts;
  for (const auto &[header, names] : namesByHeader()) {
    for (const std::string &name : names.declared)
      ++counts[name];
  }
  EXPECT_FALSE(counts.empty());
  for (const auto &[name, count] : counts)
    EXPECT_EQ(1, count) << name;
}

TEST(Headers, OfTheLibrarysOwnUnitsReadNoOtherUnit) {
  const std::set<std::string> expected = {"WRTObjcBridge/WRTInspectableBridge.h",
                                          "WRTObjcBridge/WRTInterfaceProxy.h",
                                          "WRTObjcBridge/WRTTypes.h",
                                          "WRTObjcBridge/WRTUnknownBridge.h",
                                          "WRTObjcBridge/types/Windows.UI.Popups.h",
                                          "WRTObjcBridge/Windows.UI.Popups.h"};
  EXPECT_EQ(expected, Job({"WRTObjcBridge/Windows.UI.Popups.h"}, kObjC, kOwn).compile().read);
}

TEST(Headers, LetTheReadmesFirstExampleCompile) {
  std::ifstream readme(WRT_REPOSITORY "/README.md");
  const fs::path example = scratch() / "example.m";
  std::ofstream source(example);
  // The declarations of Foundation for the product have what the library uses.
  source << "@class NSString;\nextern void NSLog(NSString *format, ...);\n";
  std::string line;
  while (std::getline(readme, line) && line != "```objc") {
  }
  while (std::getline(readme, line) && line != "```")
    source << line << '\n';
  source.close();
  ASSERT_GT(fs::file_size(example), 0U);
  EXPECT_EQ("", Job({}, kObjC, kUsualWarnings, example).compile().messages);
}

TEST(Headers, TakeAnIntWhereTheyNameAnEnumeration) {
  const std::string source = WRT_REPOSITORY "/tests/headers/spellings.m";
  for (const char *language : {kObjC, kObjCpp})
    EXPECT_EQ("", Job({}, language, kUsualWarnings, source).compile().messages) << language;
}

/// What only tests have use of, and headers that declare nothing by themselves, nobody looks for.
bool isLookedFor(const std::string &header) {
  if (header.ends_with("/test.h"))
    return false;
  std::ifstream file(includeFolder / header);
  const std::string text(std::istreambuf_iterator<char>(file), {});
  static const std::regex declaration(R"((^|\n)(typedef|@interface|WRT_BRIDGE_API))");
  return std::regex_search(text, declaration);
}

TEST(Headers, TheUmbrellaReachesWhatIsLookedForAndNoneTheUmbrella) {
  for (const Job &job : compiled()) {
    const std::string &header = job.headers[0];
    const std::string umbrella = umbrellaOf(header);
    EXPECT_TRUE(readBy(umbrella).contains(header) || !isLookedFor(header)) << header;
    EXPECT_FALSE(header.ends_with("/test.h") && readBy(umbrella).contains(header));
    EXPECT_TRUE(header == umbrella || !job.read.contains(umbrella)) << header;
  }
}

} // namespace

int main(int count, char **arguments) {
  testing::InitGoogleTest(&count, arguments);
  if (count < 3) {
    std::fprintf(stderr, "usage: headertests INCLUDE_FOLDER COMPILER [FLAG...]\n");
    return 2;
  }
  includeFolder = arguments[1];
  for (int i = 2; i < count; ++i)
    compiler += shellWord(arguments[i]);
  compiler += "-I" + shellWord(includeFolder.string());
  return RUN_ALL_TESTS();
}
