// What the image tools make of their arguments, and how they write.
#include "Tool.h"
#include "Output.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iostream>
#include <stdexcept>

namespace wrt {
namespace {

/// The exit status, and what is printed: by the actions, or as an error.
using Outcome = std::pair<int, std::string>;

Outcome run(const Tool &tool, std::vector<std::string> arguments) {
  arguments.insert(arguments.begin(), "/somewhere/else");
  std::vector<char *> pointers;
  for (std::string &each : arguments)
    pointers.push_back(each.data());
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  const int status = tool.run(static_cast<int>(pointers.size()), pointers.data());
  const std::string output = testing::internal::GetCapturedStdout();
  return {status, output + testing::internal::GetCapturedStderr()};
}

Tool::Action print(const char *command) {
  return [command](const Arguments &given) {
    std::cout << command << ' ' << given["IMAGE"];
    for (const std::string &each : given.all("DLL"))
      std::cout << ' ' << each;
    return 3;
  };
}

TEST(Tool, GivesACommandItsArguments) {
  Tool tool("trial", "Tries things.", "3 always.");
  tool.command("show", {"IMAGE", "DLL..."}, "shows\nthem", print("show"));
  tool.command("fail", {"IMAGE"}, "fails", [](const Arguments &given) -> int {
    throw std::runtime_error(given["IMAGE"] + ": broken");
  });
  EXPECT_EQ(run(tool, {"show", "a", "b"}), Outcome(3, "show a b"));
  EXPECT_EQ(run(tool, {"show", "fail", "show", "c"}), Outcome(3, "show fail show c"));
  EXPECT_EQ(run(tool, {"fail", "a"}), Outcome(1, "trial: a: broken\n"));

  const auto wrong = [](const std::string &what) {
    return Outcome(2, "trial: " + what + "; 'trial --help' tells more\n");
  };
  EXPECT_EQ(run(tool, {}), wrong("a command is missing"));
  EXPECT_EQ(run(tool, {"a"}), wrong("there is no command 'a'"));
  EXPECT_EQ(run(tool, {"fail"}), wrong("IMAGE is required"));
  EXPECT_EQ(run(tool, {"show", "a"}), wrong("DLL is required"));
  EXPECT_EQ(run(tool, {"fail", "a", "b"}), wrong("The following argument was not expected: b"));

  const auto [status, help] = run(tool, {"--help"});
  EXPECT_EQ(status, 0);
  for (const char *part : {"Tries things.\n", "  show IMAGE DLL...\n      shows\n      them\n",
                           "  fail IMAGE\n", "Exit status: 3 always.\n"})
    EXPECT_NE(help.find(part), std::string::npos) << part << help;
}

TEST(Tool, HasArgumentsWithoutACommand) {
  Tool tool("trial", "Tries things.");
  tool.arguments({"IMAGE", "DLL..."}, print("shown"));
  EXPECT_EQ(run(tool, {"a", "b", "c"}), Outcome(3, "shown a b c"));
  EXPECT_EQ(run(tool, {"a"}).first, 2);
}

TEST(Output, ReplacesWhatStandsBetweenTwoLines) {
  const auto file = std::filesystem::temp_directory_path() / "WRTOutputTest.md";
  save(file, "end\nbegin\nold\nend\nrest\n");
  EXPECT_EQ(replaceBetween("begin", "end", file, "new\n"), "end\nbegin\nnew\nend\nrest\n");
  EXPECT_THROW(replaceBetween("rest", "end", file, ""), std::runtime_error);
  std::filesystem::remove(file);
  EXPECT_THROW(replaceBetween("begin", "end", file, ""), std::runtime_error);
  EXPECT_THROW(save(file / "below", ""), std::runtime_error);
}

} // namespace
} // namespace wrt
