#include "tests/generator/Generated.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

namespace bridgegen::test {
namespace {

namespace fs = std::filesystem;

struct Outcome {
  int status;
  std::string output; ///< standard output and standard error
};

/// Runs the real program.
Outcome run(const std::string &arguments) {
  FILE *pipe = popen((WRT_BRIDGEGEN " " + arguments + " 2>&1").c_str(), "r");
  Outcome result{-1, ""};
  if (!pipe)
    return result;
  std::array<char, 4096> buffer;
  while (const size_t count = fread(buffer.data(), 1, buffer.size(), pipe))
    result.output.append(buffer.data(), count);
  result.status = WEXITSTATUS(pclose(pipe));
  return result;
}

class Program : public testing::Test {
protected:
  void SetUp() override {
    fs::remove_all(folder_);
    fs::create_directories(folder_);
  }
  void TearDown() override { fs::remove_all(folder_); }

  std::string write(const std::string &name, const std::string &text) {
    std::ofstream(folder_ / name) << text;
    return (folder_ / name).string();
  }

  const fs::path folder_ =
      fs::temp_directory_path() / ("bridgegen-run-" + std::to_string(getpid()));
};

TEST_F(Program, WritesNothingWhenOneFileOfSeveralIsWrong) {
  const std::string bad = write("bad.idl", "enum Colour { Red = 1 }\nenum Shape { Round = }\n");
  const Outcome result =
      run("--output " + folder_.string() + "/out " WRT_TEST_DECLARATIONS " " + bad);
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.output, bad + ":2:22: error: expected a number, found '}'\n");
  EXPECT_FALSE(fs::exists(folder_ / "out"));
}

TEST_F(Program, RefusesAHandWrittenMethodOfAnotherClass) {
  const std::string stray = write("stray.tsv", "WRTBaseBridge\tNSObject\n"
                                               "WRTOtherBridge\t-\tinit\t@8@0:4\t-\t-\t-\n");
  const Outcome refused = run("--output " + folder_.string() + "/out --hand-written " + stray +
                              " " WRT_TEST_DECLARATIONS);
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.output, stray + ":2:1: error: expected a class and its superclass, or a method "
                                    "of the class above\n");
}

TEST_F(Program, SaysWhenAFileCannotBeReadOrAFolderMade) {
  for (const std::string &file : {folder_.string() + "/none.idl", folder_.string()}) {
    const Outcome missing = run("--output " + folder_.string() + "/out " + file);
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.output, file + ": error: cannot be read\n");
  }
  write("taken", "");
  const Outcome taken = run("--output " + folder_.string() + "/taken " WRT_TEST_DECLARATIONS);
  EXPECT_EQ(taken.status, 1);
  EXPECT_NE(taken.output.find("bridgegen: "), std::string::npos) << taken.output;
}

TEST_F(Program, WritesTheReferenceAlone) {
  const std::string options = "--reference " + folder_.string() + "/site --platform ";
  const Outcome refused =
      run(options + write("bad.tsv", "IDoor\n\tget_Width\n") + " " WRT_TEST_DECLARATIONS);
  EXPECT_EQ(refused.status, 1);
  EXPECT_NE(refused.output.find("bad.tsv:2:1: error: expected an interface"), std::string::npos)
      << refused.output;
  const Outcome written = run(options + write("good.tsv", "IDoor\n") + " " WRT_TEST_DECLARATIONS);
  EXPECT_EQ(written.status, 0) << written.output;
  EXPECT_TRUE(fs::exists(folder_ / "site/content/api/test/TestClass.md"));
  EXPECT_FALSE(fs::exists(folder_ / "site/catalogue.tsv"));
}

TEST_F(Program, MakesAnAddOnOrNothing) {
  const std::string known = write("known.idl", "enum Colour { Red = 1 }");
  const std::string own = write("own.idl", "struct Dot { Colour colour; }");
  const std::string start = "--library Dots --output " + folder_.string() + "/out ";
  const Outcome made = run(start + "--prefix My --known " + known + " " + own);
  EXPECT_EQ(made.status, 0) << made.output;
  EXPECT_NE(readFile(folder_ / "out/include/Dots/types/own.h").find("} MyWRTDot;"),
            std::string::npos);
  EXPECT_FALSE(fs::exists(folder_ / "out/include/WRTObjcBridge"));
  std::istringstream lines(run("--list-outputs --library Dots " + own).output);
  for (std::string path; std::getline(lines, path);)
    EXPECT_TRUE(fs::exists(folder_ / "out" / path)) << path;

  fs::remove_all(folder_ / "out");
  const std::string clash = write("clash.idl", "enum Colour { Green = 2 }");
  const Outcome refused = run(start + "--known " + known + " " + clash);
  EXPECT_EQ(refused.status, 1);
  EXPECT_EQ(refused.output, clash + ":1:6: error: type 'Colour' is declared twice\n");
  EXPECT_FALSE(fs::exists(folder_ / "out"));
  EXPECT_EQ(run("--known " + known + " --output " + folder_.string() + "/out " + own).status, 2);
}

/// Metadata and declarations that agree, and a slot that is elsewhere.
TEST_F(Program, ComparesMetadataWithWhatIsKnown) {
  const std::string metadata = WRT_GREETER "/Contoso.winmd";
  const std::string head = "namespace Contoso;\nfull interface IGuest "
                           "{6a9f0b52-3c1e-4d57-9b7a-51f1f3a9c001} { ";
  const std::string right = write("right.idl", head + "String Name { get; } }");
  const Outcome same = run("import --check " + metadata + " --known " + right);
  EXPECT_EQ(same.status, 0) << same.output;
  EXPECT_NE(same.output.find("besides\tContoso.IGuest: get_Visit\n"), std::string::npos);
  const std::string wrong = write("wrong.idl", head + "Int32 Age { get; } String Name { get; } }");
  const Outcome differs = run("import --check " + metadata + " --known " + wrong);
  EXPECT_EQ(differs.status, 1);
  EXPECT_NE(differs.output.find("lacks\tContoso.IGuest: get_Age\n"), std::string::npos);
  EXPECT_NE(differs.output.find("slot\tContoso.IGuest: get_Name has slot 6, declared at 7\n"),
            std::string::npos)
      << differs.output;
  const Outcome refused =
      run("import " + metadata + " --known " + wrong + " --output " + folder_.string() + "/out");
  EXPECT_EQ(refused.status, 1);
  EXPECT_FALSE(fs::exists(folder_ / "out"));
}

TEST_F(Program, TellsWhatIsWrongWithTheCommandLine) {
  EXPECT_EQ(run("").status, 2);
  EXPECT_EQ(run("--help").status, 0);
  const std::string more = "; 'bridgegen --help' tells more\n";
  EXPECT_EQ(run("--output").output, "bridgegen: --output: 1 required FOLDER missing" + more);
  EXPECT_EQ(run("--output a --reference b x.idl").status, 2);
  EXPECT_EQ(run("--output a --library 1 x.idl").status, 2);
  EXPECT_EQ(run("x.idl").output, "bridgegen: --output is required" + more);
  const Outcome unknown = run("--verbose x.idl");
  EXPECT_EQ(unknown.status, 2);
  EXPECT_EQ(unknown.output, "bridgegen: The following argument was not expected: --verbose" + more);
}

} // namespace
} // namespace bridgegen::test
