#include "tests/generator/Generated.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <sstream>
#include <sys/wait.h>
#include <unistd.h>

namespace bridgegen::test {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::StartsWith;

/// Runs the real program. Its exit status, a colon, and what it printed.
std::string run(const std::string &arguments) {
  FILE *pipe = popen((WRT_BRIDGEGEN " " + arguments + " 2>&1").c_str(), "r");
  if (!pipe)
    return "cannot be run";
  std::string output;
  for (int c; (c = fgetc(pipe)) != EOF;)
    output += static_cast<char>(c);
  return std::to_string(WEXITSTATUS(pclose(pipe))) + ": " + output;
}

class Program : public FolderTest {
protected:
  Program() { fs::create_directories(folder_); }

  std::string write(const std::string &name, const std::string &text) {
    std::ofstream(folder_ / name) << text;
    return (folder_ / name).string();
  }

  const std::string out_ = folder_ / "out";
  const std::string start_ = "--output " + out_ + " ";
};

TEST_F(Program, WritesNothingWhenOneFileOfSeveralIsWrong) {
  const std::string bad = write("bad.idl", "enum Colour { Red = 1 }\nenum Shape { Round = }\n");
  EXPECT_EQ(run(start_ + WRT_TEST_DECLARATIONS " " + bad),
            "1: " + bad + ":2:22: error: expected a number, found '}'\n");
  EXPECT_FALSE(fs::exists(out_));
}

TEST_F(Program, RefusesAHandWrittenMethodOfAnotherClass) {
  const std::string stray = write("stray.tsv", "WRTBaseBridge\tNSObject\n"
                                               "WRTOtherBridge\t-\tinit\t@8@0:4\t-\t-\t-\n");
  EXPECT_EQ(run(start_ + "--hand-written " + stray + " " WRT_TEST_DECLARATIONS),
            "1: " + stray +
                ":2:1: error: expected a class and its superclass, or a method of the class "
                "above\n");
}

TEST_F(Program, SaysWhenAFileCannotBeReadOrAFolderMade) {
  for (const std::string &file : {folder_.string() + "/none.idl", folder_.string()})
    EXPECT_EQ(run(start_ + file), "1: " + file + ": error: cannot be read\n");
  write("out", "");
  EXPECT_THAT(run(start_ + WRT_TEST_DECLARATIONS), StartsWith("1: bridgegen: "));
}

TEST_F(Program, WritesTheReferenceAlone) {
  const std::string options = "--reference " + out_ + " --platform ";
  EXPECT_THAT(
      run(options + write("bad.tsv", "IDoor\n\tget_Width\n") + " " WRT_TEST_DECLARATIONS),
      testing::AllOf(StartsWith("1: "), HasSubstr("bad.tsv:2:1: error: expected an interface")));
  EXPECT_THAT(run(options + write("good.tsv", "IDoor\n") + " " WRT_TEST_DECLARATIONS),
              StartsWith("0: "));
  EXPECT_TRUE(fs::exists(out_ + "/content/api/test/TestClass.md"));
  EXPECT_FALSE(fs::exists(out_ + "/catalogue.tsv"));
}

TEST_F(Program, MakesAnAddOnOrNothing) {
  const std::string known = " --known " + write("known.idl", "enum Colour { Red = 1 }") + " ";
  const std::string own = write("own.idl", "struct Dot { Colour colour; }");
  EXPECT_THAT(run(start_ + "--library Dots --prefix My" + known + own), StartsWith("0: "));
  EXPECT_THAT(readFile(out_ + "/include/Dots/types/own.h"), HasSubstr("} MyWRTDot;"));
  EXPECT_FALSE(fs::exists(out_ + "/include/WRTObjcBridge"));
  std::istringstream lines(run("--list-outputs --library Dots " + own).substr(3));
  for (std::string path; std::getline(lines, path);)
    EXPECT_TRUE(fs::exists(out_ + "/" + path)) << path;

  fs::remove_all(out_);
  const std::string clash = write("clash.idl", "enum Colour { Green = 2 }");
  EXPECT_EQ(run(start_ + "--library Dots" + known + clash),
            "1: " + clash + ":1:6: error: type 'Colour' is declared twice\n");
  EXPECT_FALSE(fs::exists(out_));
  EXPECT_THAT(run(start_ + known + own), StartsWith("2: "));
}

/// Metadata and declarations that agree, and a slot that is elsewhere.
TEST_F(Program, ComparesMetadataWithWhatIsKnown) {
  const std::string metadata = WRT_GREETER "/Contoso.winmd --known ";
  const std::string head = "namespace Contoso;\nfull interface IGuest "
                           "{6a9f0b52-3c1e-4d57-9b7a-51f1f3a9c001} { ";
  const std::string right = write("right.idl", head + "String Name { get; } }");
  EXPECT_THAT(run("import --check " + metadata + right),
              testing::AllOf(StartsWith("0: "), HasSubstr("besides\tContoso.IGuest: get_Visit\n")));
  const std::string wrong = write("wrong.idl", head + "Int32 Age { get; } String Name { get; } }");
  EXPECT_THAT(
      run("import --check " + metadata + wrong),
      testing::AllOf(StartsWith("1: "), HasSubstr("lacks\tContoso.IGuest: get_Age\n"),
                     HasSubstr("slot\tContoso.IGuest: get_Name has slot 6, declared at 7\n")));
  EXPECT_THAT(run("import " + metadata + wrong + " --output " + out_), StartsWith("1: "));
  EXPECT_FALSE(fs::exists(out_));
}

TEST_F(Program, TellsWhatIsWrongWithTheCommandLine) {
  const std::string more = "; 'bridgegen --help' tells more\n";
  EXPECT_THAT(run(""), StartsWith("2: "));
  EXPECT_THAT(run("--help"), StartsWith("0: "));
  EXPECT_EQ(run("--output"), "2: bridgegen: --output: 1 required FOLDER missing" + more);
  EXPECT_THAT(run("--output a --reference b x.idl"), StartsWith("2: "));
  EXPECT_EQ(run("x.idl"), "2: bridgegen: --output is required" + more);
  EXPECT_THAT(run("--output a --library 1 x.idl"), StartsWith("2: "));
  EXPECT_EQ(run("--verbose x.idl"),
            "2: bridgegen: The following argument was not expected: --verbose" + more);
}

} // namespace
} // namespace bridgegen::test
