#include "generator/output/OutputSet.h"
#include "tests/generator/Generated.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <sstream>
#include <unistd.h>

namespace bridgegen::test {
namespace {

namespace fs = std::filesystem;

const char *const kSample = R"(
full interface IFirst {11111111-0000-0000-0000-000000000001} { void Run(); ISecond Next(); }
)";
const char *const kOther = R"(
full interface ISecond {11111111-0000-0000-0000-000000000002} { Int32 Count { get; } }
)";

/// A folder that is gone after the test.
class Outputs : public testing::Test {
protected:
  void SetUp() override {
    folder_ =
        fs::temp_directory_path() / ("bridgegen-" + std::to_string(getpid()) + "-" +
                                     testing::UnitTest::GetInstance()->current_test_info()->name());
    fs::remove_all(folder_);
  }
  void TearDown() override { fs::remove_all(folder_); }

  fs::path folder_;
};

OutputSet outputsOf(const Generated &generated) {
  OutputSet outputs;
  for (const auto &[path, text] : generated.files)
    outputs.add(path, text);
  return outputs;
}

TEST_F(Outputs, DoNotDependOnTheOrderOfTheFiles) {
  const Generated forwards = generateFrom({{"x/a.idl", kSample}, {"y/b.idl", kOther}});
  const Generated backwards = generateFrom({{"y/b.idl", kOther}, {"x/a.idl", kSample}});
  ASSERT_EQ(forwards.errors, "");
  EXPECT_EQ(forwards.files, backwards.files);
}

TEST_F(Outputs, AreWrittenOnlyWhenTheyChange) {
  const Generated before = generateFrom({{"a.idl", kSample}, {"b.idl", kOther}});
  EXPECT_EQ(outputsOf(before).commit(folder_), before.files.size());
  EXPECT_EQ(outputsOf(before).commit(folder_), 0U);

  const fs::path untouched = folder_ / "classes/b.mm";
  const fs::path touched = folder_ / "classes/a.mm";
  const auto old = fs::file_time_type::clock::now() - std::chrono::hours(1);
  fs::last_write_time(untouched, old);
  fs::last_write_time(touched, old);
  std::string changed = kSample;
  changed.replace(changed.find("Run"), 3, "Walk");
  const Generated after = generateFrom({{"a.idl", changed}, {"b.idl", kOther}});
  EXPECT_GT(outputsOf(after).commit(folder_), 0U);
  EXPECT_EQ(fs::last_write_time(untouched), old);
  EXPECT_NE(fs::last_write_time(touched), old);
  EXPECT_EQ(readFile(touched), after.files.at("classes/a.mm"));
}

TEST_F(Outputs, OfARemovedFileGo) {
  const Generated before = generateFrom({{"a.idl", "enum E { }"}, {"b.idl", kOther}});
  outputsOf(before).commit(folder_);
  const fs::path foreign = folder_ / "include/WRTObjcBridge/WRTTypes.h";
  fs::copy_file(folder_ / "catalogue.tsv", foreign);
  const Generated after = generateFrom({{"a.idl", "enum E { }"}});
  outputsOf(after).commit(folder_);
  for (const auto &[path, text] : before.files)
    EXPECT_EQ(fs::exists(folder_ / path), after.files.contains(path)) << path;
  EXPECT_TRUE(fs::exists(foreign));
}

/// What is selected comes whole, with its interfaces and instances; what those name, as proxies.
TEST_F(Outputs, OfASelectionHaveWhatItNeeds) {
  std::deque<Source> sources;
  sources.emplace_back("a.idl", R"(
namespace N;
interface IList<T> {11111111-0000-0000-0000-000000000001} { T First(); }
full interface IPart {11111111-0000-0000-0000-000000000002} { Other Deep(); }
full class Part : IPart;
full interface IOther {11111111-0000-0000-0000-000000000003} { void Run(); }
full class Other : IOther;
full interface IWhole {11111111-0000-0000-0000-000000000004} { IList<Part> Parts { get; } Kind Kind { get; } }
factory interface IWholeFactory {11111111-0000-0000-0000-000000000005} { Whole Make(); }
full class Whole : IWhole factory IWholeFactory;
enum Kind { One = 1 }
enum Unused { One = 1 }
full IList<Part>, IList<Other>;
)");
  Diagnostics diagnostics;
  Extras extras;
  extras.selection = {"N.Whole"};
  const auto outputs = generate(sources, extras, diagnostics);
  ASSERT_TRUE(outputs);
  std::istringstream digest(outputs->files().at("surface.digest"));
  std::string classes;
  for (std::string name, kind, superclass, count, hash;
       digest >> name >> kind >> superclass >> count >> hash;)
    classes += name + " " + kind + " " + count + "\n";
  EXPECT_EQ(classes, "WRTIPartBridge proxy-interface 1\n"
                     "WRTIWholeBridge interface 3\n"
                     "WRTIList__1_WRTPart_P_Bridge interface 2\n"
                     "WRTPartBridge proxy-class 1\n"
                     "WRTWholeBridge class 6\n");
  EXPECT_EQ(outputs->files().at("include/WRTObjcBridge/types/a.h").find("Unused"),
            std::string::npos);
  extras.selection = {"N.Hole"};
  EXPECT_FALSE(generate(sources, extras, diagnostics));
}

TEST_F(Outputs, OfAUnitDoNotChangeWithTheMembersOfAnother) {
  std::string changed = kOther;
  changed.replace(changed.find("Count"), 5, "Total");
  const Generated before = generateFrom({{"a.idl", kSample}, {"b.idl", kOther}});
  const Generated after = generateFrom({{"a.idl", kSample}, {"b.idl", changed}});
  for (const auto &[path, text] : before.files) {
    if (path.find("/a.") != path.npos) {
      EXPECT_EQ(text, after.files.at(path)) << path;
    }
  }
  EXPECT_NE(before.files.at("surface.digest"), after.files.at("surface.digest"));
}

} // namespace
} // namespace bridgegen::test
