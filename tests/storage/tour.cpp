// The tour as a program of its own, from its arguments to its output and exit status.

#include "tests/storage/StorageFixture.h"

#include <algorithm>
#include <cstdio>
#include <sys/wait.h>
#include <unistd.h>

using namespace wrt::test;

namespace {

struct Run {
  int status;
  std::string output; ///< both streams

  bool has(const std::string &text) const { return output.find(text) != std::string::npos; }
};

Run runTour(const std::string &arguments, const std::string &launcher = "") {
  Run run{-1, ""};
  // The strings behind string results are left over on purpose, which a leak check would report.
  const std::string options = "export ASAN_OPTIONS=\"$ASAN_OPTIONS:detect_leaks=0\"; ";
  FILE *pipe = popen((options + launcher + "\"" WRT_TOUR "\" 2>&1 " + arguments).c_str(), "r");
  if (!pipe)
    return run;
  for (int c; (c = fgetc(pipe)) != EOF;)
    run.output += static_cast<char>(c);
  const int status = pclose(pipe);
  run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return run;
}

std::string inQuotes(const std::filesystem::path &path) { return "'" + path.string() + "'"; }

const Cell manyFiles("tour.program.many_files.normal", [] {
  const TemporaryFolder made;
  std::uintmax_t bytes = 0, words = 0;
  for (int i = 0; i < 2000; ++i) {
    const std::string number = std::to_string(i);
    std::string content;
    std::string name = "data/file " + number;
    if (i % 4 == 0) {
      name += ".txt";
      for (int word = 0; word <= i % 7; ++word, ++words)
        content += "word\n";
    } else if (i % 4 == 1) {
      name += ".xml";
      content = "<r><e n='" + number + "'>text</e></r>";
    } else {
      name += i % 4 == 2 ? ".bin" : "";
      content.assign(static_cast<size_t>(i), '\x7F');
    }
    bytes += content.size();
    made.add(name, content);
  }
  made.add("data/broken.xml", "<a><b></a>");
  made.add("data/broken.txt", "\xFF\xFF");
  std::filesystem::create_symlink("nowhere", made.path() / "data/dangling");
  // A folder below with a way back, and names that are no text.
  made.add("data/b\xFF/new\nline\xFE.png",
           std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR\0\1\0\2\0\0\2\1", 24) + "12345");
  made.add("data/b\xFF/no.png",
           std::string("\x89PNG\r\n\x1A\n\0\0\0\rNONE\0\1\0\2\0\0\2\1", 24) + "12345");
  std::filesystem::create_symlink("..", made.path() / "data/b\xFF/up");
  const Run run = runTour("--deep --summary " + inQuotes(made.path() / "s\xFF.txt") + " " +
                          inQuotes(made.path() / "data"));
  EXPECT_EQ(1, run.status) << "two files cannot be read";
  const std::pair<const char *, std::uintmax_t> totals[] = {
      {"files", 2004},        {"bytes", bytes + 12 + 58}, {"texts", 500},      {"words", words},
      {"XML documents", 500}, {"XML elements", 1000},     {"data files", 1002}};
  for (const auto &[name, value] : totals) {
    char line[64];
    std::snprintf(line, sizeof line, "  %-16s%12ju\n", name, value);
    EXPECT_TRUE(run.has(line)) << line << run.output.substr(run.output.find("totals"));
  }
  for (const char *text :
       {"file 1997.xml", "b\\xFF/new\\nline\\xFE.png ", "PNG picture, 65538 x 513\n",
        "tour: read 1002 of 2004\n",
        "tour: cannot read \"broken.xml\": an XML element is not closed by its own name "
        "(0xC00CE56D)",
        "tour: cannot read \"broken.txt\": not a text in UTF-8 or UTF-16 "
        "(ERROR_NO_UNICODE_TRANSLATION, 0x80070459)",
        "tour: 2 problems"})
    EXPECT_TRUE(run.has(text)) << text;
});

const Cell refused("tour.program.folder.refused", [] {
  const TemporaryFolder made;
  const auto closed = made.path() / "closed";
  std::filesystem::create_directory(closed);
  std::filesystem::permissions(closed, std::filesystem::perms::none);
  const auto summary = made.path() / "summary.txt";
  const struct {
    std::string arguments;
    int status;
    std::string text;
    const char *launcher = "";
  } cases[] = {
      {inQuotes(made.path() / "none"), 1, "not found (ERROR_FILE_NOT_FOUND, 0x80070002)"},
      {inQuotes(made.add("file", "")), 1, "0x80070057)"},
      {inQuotes(closed), 1, "access denied (E_ACCESSDENIED, 0x80070005)",
       getuid() == 0 ? "setpriv --reuid 65534 --clear-groups " : ""},
      // What cannot be written is told in one line, and no part of a summary stays.
      {"--summary " + inQuotes(summary), 1,
       "tour: cannot write the summary \"" + summary.string() + "\": ",
       "trap '' XFSZ; ulimit -f 0; "},
      {"--nonsense", 2, ""},
      {"--help", 0, "Usage: tour"},
  };
  for (const auto &each : cases) {
    const Run run = runTour(each.arguments, each.launcher);
    EXPECT_EQ(each.status, run.status) << each.arguments;
    EXPECT_TRUE(run.has(each.text)) << run.output;
  }
  EXPECT_FALSE(std::filesystem::exists(summary));
  for (const char *output : {">/dev/full", ">&-"}) {
    const Run run = runTour(std::string("--help ") + output);
    EXPECT_EQ(1, run.status) << output;
    EXPECT_EQ(1, std::ranges::count(run.output, '\n')) << run.output;
  }
});

} // namespace
