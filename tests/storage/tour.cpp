// The tour as a program of its own, from its arguments to its output and exit status.

#include "tests/storage/StorageFixture.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sys/wait.h>
#include <unistd.h>

using namespace wrt::test;

namespace {

struct Run {
  int status;
  std::string output; ///< both streams
};

Run runTour(const std::string &arguments, const std::string &launcher = "") {
  Run run{-1, ""};
  // The strings behind string results are left over on purpose, which a leak check would report.
  const char *options = std::getenv("ASAN_OPTIONS");
  const std::string saved = options ? options : "";
  setenv("ASAN_OPTIONS", (saved + ":detect_leaks=0").c_str(), 1);
  FILE *pipe = popen((launcher + "\"" WRT_TOUR "\" 2>&1 " + arguments).c_str(), "r");
  if (!pipe)
    return run;
  char part[4096];
  for (size_t count; (count = fread(part, 1, sizeof part, pipe)) > 0;)
    run.output.append(part, count);
  const int status = pclose(pipe);
  options ? setenv("ASAN_OPTIONS", saved.c_str(), 1) : unsetenv("ASAN_OPTIONS");
  run.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return run;
}

bool contains(const Run &run, const std::string &text) {
  return run.output.find(text) != std::string::npos;
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
  const Run run = runTour("--deep --summary " + inQuotes(made.path() / "s.txt") + " " +
                          inQuotes(made.path() / "data"));
  EXPECT_EQ(1, run.status) << "two files cannot be read";
  const auto total = [&](const char *name, std::uintmax_t value) {
    char line[64];
    std::snprintf(line, sizeof line, "  %-16s%12ju\n", name, value);
    EXPECT_TRUE(contains(run, line)) << line << run.output.substr(run.output.find("totals"));
  };
  total("files", 2004);
  total("bytes", bytes + 12 + 58);
  total("texts", 500);
  total("words", words);
  total("XML documents", 500);
  total("XML elements", 1000);
  total("data files", 1002);
  EXPECT_TRUE(contains(run, "file 1997.xml"));
  EXPECT_TRUE(contains(run, "b\\xFF/new\\nline\\xFE.png "));
  EXPECT_TRUE(contains(run, "PNG picture, 65538 x 513\n"));
  EXPECT_TRUE(contains(run, "tour: read 1002 of 2004\n")) << "progress";
  EXPECT_TRUE(contains(run, "tour: cannot read \"broken.xml\": an XML element is not closed by its "
                            "own name (0xC00CE56D)"));
  EXPECT_TRUE(contains(run, "tour: cannot read \"broken.txt\": not a text in UTF-8 or UTF-16 "
                            "(ERROR_NO_UNICODE_TRANSLATION, 0x80070459)"));
  EXPECT_TRUE(contains(run, "tour: 2 problems"));
});

const Cell refused("tour.program.folder.refused", [] {
  const TemporaryFolder made;
  Run run = runTour(inQuotes(made.path() / "none"));
  EXPECT_EQ(1, run.status);
  EXPECT_TRUE(contains(run, "not found (ERROR_FILE_NOT_FOUND, 0x80070002)")) << run.output;
  run = runTour(inQuotes(made.add("file", "")));
  EXPECT_EQ(1, run.status);
  EXPECT_TRUE(contains(run, "0x80070057)")) << run.output;
  const auto closed = made.path() / "closed";
  std::filesystem::create_directory(closed);
  std::filesystem::permissions(closed, std::filesystem::perms::none);
  run = runTour(inQuotes(closed), getuid() == 0 ? "setpriv --reuid 65534 --clear-groups " : "");
  EXPECT_EQ(1, run.status);
  EXPECT_TRUE(contains(run, "access denied (E_ACCESSDENIED, 0x80070005)")) << run.output;
  // What cannot be written is told in one line, and no part of a summary stays.
  for (const char *output : {">/dev/full", ">&-"}) {
    run = runTour(std::string("--help ") + output);
    EXPECT_EQ(1, run.status) << output;
    EXPECT_EQ(1, std::ranges::count(run.output, '\n')) << run.output;
  }
  const auto summary = made.path() / "summary.txt";
  run = runTour("--summary " + inQuotes(summary), "trap '' XFSZ; ulimit -f 0; ");
  EXPECT_EQ(1, run.status);
  EXPECT_TRUE(contains(run, "tour: cannot write the summary \"" + summary.string() + "\": "));
  EXPECT_FALSE(std::filesystem::exists(summary));
  EXPECT_EQ(2, runTour("--nonsense").status);
  run = runTour("--help");
  EXPECT_EQ(0, run.status);
  EXPECT_TRUE(contains(run, "Usage: tour"));
});

} // namespace
